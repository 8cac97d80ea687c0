#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "page/PercentAxis.h"

namespace quorvel {

/// Dots side by side: one, or several with the same percentage.
struct DotRun {
    std::int64_t left = 0;          // the middle of its first dot along the axis
    int row = 0;                    // from the foot
    std::vector<std::size_t> dots;  // their indices among the percentages

    bool operator==(const DotRun&) const = default;
};

/// Where dots stand. Lengths are tenths of a percent of the axis' length.
struct DotRows {
    std::int64_t width = 0;  // of a dot with its share of the gaps; rows are as high
    int rows = 0;
    std::vector<DotRun> runs;  // by percentage, the lowest first
};

/// A dot of the width for each percentage. The same ones stand side by side, their middle where the
/// percentage is, up to five in a row and more in a block of rows. Different ones never touch: what
/// has no room in a row goes to the lowest one that has.
DotRows dotRows(const std::vector<std::int64_t>& percentages, const PercentAxis& axis,
                std::int64_t width);

/// The same with the largest dots whose rows stay low, or the smallest dots there are.
DotRows dotRows(const std::vector<std::int64_t>& percentages, const PercentAxis& axis);

}  // namespace quorvel
