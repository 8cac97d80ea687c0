#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "core/CellPoints.h"

namespace quorvel {

/// Adds each cell to the sum of its student, which is rounded to a whole number, halves to even. A
/// sum that would not fit into 16 bits stays. There may be more students than cells.
void addEarned(std::span<const PackedPoints> cells, std::span<std::int16_t> earned);
/// The same for one cell that could not be packed.
void addEarned(const CellPoints& cell, std::int16_t& earned);

/// Adds `value` to the sum of each student but those whose cell is excused. A sum that would not
/// fit into 16 bits stays. Students behind the cells have none.
void addPossible(std::int16_t value, std::span<const PackedPoints> cells,
                 std::span<std::int16_t> possible);

/// The index of the first cell from index `start` on that has one of these marks; the number of
/// cells where there is none.
std::size_t findMarked(std::span<const PackedPoints> cells, std::size_t start, int marks);

/// Of the cells that are numbers.
struct PackedSum {
    std::int32_t wholeParts = 0;
    std::int32_t count = 0;
};
/// Requires no more cells than there can be students.
PackedSum sumOf(std::span<const PackedPoints> cells);

}  // namespace quorvel
