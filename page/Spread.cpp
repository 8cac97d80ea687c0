#include "page/Spread.h"

#include <algorithm>
#include <cstddef>

#include "core/Numbers.h"

namespace quorvel {

namespace {

constexpr std::size_t quarters = 4;

/// The figure that `quarter` quarters of the way through the sorted ones are passed at.
std::int64_t figureAt(const std::vector<std::int64_t>& sorted, std::size_t quarter) {
    const std::size_t way = (sorted.size() - 1) * quarter;
    const std::int64_t lower = sorted[way / quarters];
    const std::size_t rest = way % quarters;
    if (rest == 0) return lower;
    const std::int64_t step = sorted[way / quarters + 1] - lower;
    return lower + divideDown(step * static_cast<std::int64_t>(rest), quarters);
}

}  // namespace

std::optional<Spread> spreadOf(std::vector<std::int64_t> figures) {
    if (figures.empty()) return std::nullopt;
    std::ranges::sort(figures);
    return Spread{.lowest = figures.front(),
                  .lowerQuarter = figureAt(figures, 1),
                  .middle = figureAt(figures, 2),
                  .upperQuarter = figureAt(figures, 3),
                  .highest = figures.back()};
}

}  // namespace quorvel
