#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "tests/scenario/Scenario.h"

namespace quorvel::scenario {

/// What stands behind a leading `*\`: a path from the program's folder. Nothing for other texts.
std::optional<std::string_view> insideProgramFolder(std::string_view text);

/// The text with its leading `*\` resolved.
std::string expanded(std::string_view text, std::string_view programFolder);
/// The same for every `*\` in the text.
std::string expandedEverywhere(std::string_view text, std::string_view programFolder);

/// The text as a scenario writes it: in quotation marks, with escapes, the program's folder as `*`.
std::string quoted(std::string_view text, std::string_view programFolder);

/// A dialog as a scenario writes it, without an answer.
std::string described(const Dialog& dialog, std::string_view programFolder);

}  // namespace quorvel::scenario
