#pragma once

#include <string_view>

#include "tests/scenario/LineReader.h"
#include "tests/scenario/Scenario.h"

namespace quorvel::scenario {

/// What stands behind the word "expect". Reads the line to its end.
Expectation parseExpectation(LineReader& line);

/// A dialog and its answer; `kind` is the line's first word. Reads the line to its end.
DialogStep parseDialog(std::string_view kind, LineReader& line);

}  // namespace quorvel::scenario
