#include "core/GradingScale.h"

#include <algorithm>

#include "core/Decimal.h"

namespace quorvel {

LetterThresholds::LetterThresholds(const GradingScale& scale) {
    // In whole tenths, a percentage reaches (minimum - allowance) exactly when it reaches the
    // minimum less the whole tenths of the allowance.
    constexpr std::int64_t limit = 1'000'000'000;
    const std::int64_t allowance =
        std::clamp(Decimal::fromText(scale.roundUp).scaledDown(10, 1).toInteger(), -limit, limit);
    for (std::size_t i = 0; i < tenths_.size(); ++i)
        tenths_[i] = std::int64_t{scale.minimums[i]} * 10 - allowance;
}

LetterGrade LetterThresholds::letterFor(std::int64_t percentageTenths) const {
    // The minimums need not descend: the best grade whose own threshold is reached wins.
    for (std::size_t i = 0; i < tenths_.size(); ++i)
        if (percentageTenths >= tenths_[i])
            return static_cast<LetterGrade>('A' + static_cast<char>(i));
    return LetterGrade::F;
}

}  // namespace quorvel
