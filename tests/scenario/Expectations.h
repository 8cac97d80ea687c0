#pragma once

#include <filesystem>
#include <string>

#include "tests/scenario/Driver.h"
#include "tests/scenario/Scenario.h"

namespace quorvel::scenario {

/// What an expectation came to.
struct Outcome {
    enum class Kind { AsExpected, Different, CannotBeSeen };
    Kind kind = Kind::AsExpected;
    std::string came;  // where it is different
};

/// Compares an expectation with what the program shows. `folder` is the scenario's own, where the
/// files lie that printed texts are compared with. Throws ScenarioError where there is nothing of
/// the kind to look at.
Outcome compare(const Expectation& expectation, Driver& driver,
                const std::filesystem::path& folder);

}  // namespace quorvel::scenario
