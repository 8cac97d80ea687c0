#include "tests/scenario/Expectations.h"

#include "tests/scenario/Comparison.h"
#include "tests/scenario/Texts.h"

namespace quorvel::scenario {

std::string Comparison::quotedText(std::string_view text) const {
    return quoted(text, programFolder_);
}

Outcome Comparison::compareText(std::string_view expected,
                                const std::optional<std::string>& seen) const {
    if (!seen) return cannotBeSeen();
    return whether(*seen == expanded(expected, programFolder_), quotedText(*seen));
}

Outcome compare(const Expectation& expectation, Driver& driver,
                const std::filesystem::path& folder) {
    return std::visit(Comparison(driver, folder), expectation);
}

}  // namespace quorvel::scenario
