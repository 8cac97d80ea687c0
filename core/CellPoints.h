#pragma once

#include <cstdint>

#include "core/Decimal.h"
#include "core/SmallValue.h"
#include "core/TaggedValue.h"

namespace quorvel {

/// What one cell adds to a student's points earned, found once when the score is stored.
struct CellPoints {
    /// Where the whole part stops.
    static constexpr std::int32_t wholeLimit = 1'000'000;

    /// The greatest whole number not above the reading; beyond the limit, up or down, it stops
    /// there, which no 16-bit sum can take anyway.
    std::int32_t whole = 0;
    Fraction fraction = Fraction::None;
    bool excused = false;
    bool empty = true;
};

CellPoints pointsOf(const TaggedView& value);

/// The points of a usual cell in 16 bits, since every recomputation reads all of them. A number is
/// positive: its whole part above, in the three lowest bits the number of its fraction plus 1. The
/// bits between are for marks of whoever keeps it.
using PackedPoints = std::int16_t;

inline constexpr int packedWholeShift = 5;
inline constexpr int packedFractionMask = 7;
constexpr int packedFraction(Fraction fraction) {
    return static_cast<int>(fraction) + 1;
}
/// Has no fraction, not even none.
inline constexpr PackedPoints packedEmpty = 0;
/// The one negative cell. Packed as -1 and above one half it is rounded to 0, so that sums need not
/// know of it.
inline constexpr PackedPoints packedExcused =
    -(1 << packedWholeShift) + packedFraction(Fraction::AboveHalf);

/// Of a number that can be packed.
inline constexpr int largestPackedWhole = (1 << (15 - packedWholeShift)) - 1;
constexpr bool canBePacked(const CellPoints& points) {
    return points.whole >= 0 && points.whole <= largestPackedWhole;
}

/// Requires canBePacked(points).
constexpr PackedPoints packed(const CellPoints& points) {
    if (points.empty) return packedEmpty;
    if (points.excused) return packedExcused;
    return static_cast<PackedPoints>((points.whole << packedWholeShift) +
                                     packedFraction(points.fraction));
}

constexpr CellPoints unpacked(PackedPoints points) {
    if (points == packedEmpty) return {};
    if (points == packedExcused) return {.excused = true, .empty = false};
    return {.whole = points >> packedWholeShift,
            .fraction = static_cast<Fraction>((points & packedFractionMask) - 1),
            .empty = false};
}

}  // namespace quorvel
