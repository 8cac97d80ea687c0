#pragma once

#include <optional>

#include "core/CellPoints.h"
#include "core/SmallValue.h"
#include "core/TaggedValue.h"

namespace quorvel {

// A column keeps two bytes for each cell: its packed points and two marks. Nearly every value is
// told by them: nothing, "E", and whole numbers up to 1023 as they are typed or in 16 bits.

/// A whole number of 16 bits, no text.
inline constexpr PackedPoints integerMark = 8;
/// A value that is kept apart. Where the cell has no points, those are kept with it.
inline constexpr PackedPoints apartMark = 16;

constexpr bool isMarked(PackedPoints cell, int marks) {
    return (cell & marks) != 0;
}

constexpr bool isUsualWhole(int whole) {
    return whole >= 0 && whole <= largestPackedWhole;
}
// Both require isUsualWhole(whole).
constexpr PackedPoints textCell(int whole) {
    return packed(CellPoints{.whole = whole, .empty = false});
}
constexpr PackedPoints integerCell(int whole) {
    return static_cast<PackedPoints>(textCell(whole) + integerMark);
}

/// The cell of a value that it tells; nothing for any other.
std::optional<PackedPoints> usualCell(const TaggedView& value);

/// The value of a cell that is not apart. Lasts.
TaggedView usualValue(PackedPoints cell);

/// Whether the cell holds a whole number as it is typed.
constexpr bool isUsualText(PackedPoints cell) {
    return cell > 0 && !isMarked(cell, integerMark | apartMark);
}
/// Requires isUsualText(cell). Lasts.
const SmallValue& usualText(PackedPoints cell);

}  // namespace quorvel
