#pragma once

#include <cstdint>

namespace quorvel {

/// The percentages that a picture shows from its left edge to its right one, in tenths of a
/// percent.
struct PercentAxis {
    static constexpr std::int64_t whole = 1000;  // 100 %
    static constexpr std::int64_t step = 100;    // 10 %, what both ends are multiples of
    /// No axis reaches further, however large a figure is.
    static constexpr std::int64_t furthest = 2000;

    std::int64_t from = 0;
    std::int64_t to = whole;

    /// Where a percentage stands, in tenths of a percent of the axis' length. One beyond an end
    /// stands at that end.
    std::int64_t place(std::int64_t percentage) const;
    bool holds(std::int64_t percentage) const { return percentage >= from && percentage <= to; }

    bool operator==(const PercentAxis&) const = default;
};

/// An axis that has these percentages and 100 % on it, as far as one reaches. It begins at 0 unless
/// the lowest is above.
PercentAxis axisFor(std::int64_t lowest, std::int64_t highest);

}  // namespace quorvel
