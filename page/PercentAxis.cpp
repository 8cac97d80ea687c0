#include "page/PercentAxis.h"

#include <algorithm>

#include "core/Numbers.h"

namespace quorvel {

std::int64_t PercentAxis::place(std::int64_t percentage) const {
    constexpr std::int64_t length = 1000;
    const std::int64_t shown = std::clamp(percentage, from, to);
    return (shown - from) * length / (to - from);
}

PercentAxis axisFor(std::int64_t lowest, std::int64_t highest) {
    constexpr std::int64_t shortest = 5 * PercentAxis::step;
    const auto stepsDown = [](std::int64_t percentage) {
        return divideDown(percentage, PercentAxis::step) * PercentAxis::step;
    };
    const std::int64_t top = std::clamp(highest, PercentAxis::whole, PercentAxis::furthest);
    return {.from = std::clamp<std::int64_t>(stepsDown(lowest), 0, PercentAxis::whole - shortest),
            .to = stepsDown(top + PercentAxis::step - 1)};
}

}  // namespace quorvel
