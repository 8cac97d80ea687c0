#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace quorvel {

/// How figures lie between the lowest and the highest. The quarters and the middle are those of a
/// spreadsheet's QUARTILE: a place between two figures is divided evenly. Held in the unit of the
/// figures, cut toward minus infinity.
struct Spread {
    std::int64_t lowest = 0;
    std::int64_t lowerQuarter = 0;
    std::int64_t middle = 0;
    std::int64_t upperQuarter = 0;
    std::int64_t highest = 0;

    bool operator==(const Spread&) const = default;
};

/// Nothing for no figures.
std::optional<Spread> spreadOf(std::vector<std::int64_t> figures);

}  // namespace quorvel
