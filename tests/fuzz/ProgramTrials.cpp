#include <cstdlib>

#include "tests/fuzz/Trials.h"
#include "tests/scenario/Scenario.h"
#include "tests/walk/Walk.h"

namespace quorvel::fuzz {

namespace {

/// Names the file that tells what the user of tryProgram did, as a scenario.
constexpr const char* toldFileVariable = "QUORVEL_TOLD";

}  // namespace

void tryScenario(std::span<const std::byte> bytes) {
    try {
        scenario::parseScenario({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    } catch (const scenario::SyntaxError&) {
        // It is refused.
    }
}

void tryProgram(std::span<const std::byte> bytes) {
    const char* const file = std::getenv(toldFileVariable);
    walk::ScenarioLog log = file != nullptr ? walk::ScenarioLog(file) : walk::ScenarioLog();
    walk::Walk(walk::RandomNumbers(bytes), log).takeChosenSteps();
}

}  // namespace quorvel::fuzz
