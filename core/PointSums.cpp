#include "core/PointSums.h"

#include <algorithm>
#include <cstddef>

// Loops over a whole class: without branches and in 16 bits throughout, so that the compiler takes
// eight cells at once.

namespace quorvel {

namespace {

/// What rounding adds to a sum that was cut: 1 above one half, and at one half beside an odd whole
/// number, since halves go to the even neighbour. The fractions are numbered for that.
constexpr int rounding(int cut, int packedFraction) {
    return (packedFraction + (cut & 1)) >> 2;
}

/// A sum of which only the lowest 16 bits are kept. It is on the wrong side of what it was made
/// from when it does not fit.
constexpr std::int16_t wrapped(int sum) {
    return static_cast<std::int16_t>(sum);
}

/// `farther` picks the sum that lies in the direction of `value`.
template <typename Farther>
void addPossible(std::int16_t value, std::span<const PackedPoints> cells,
                 std::span<std::int16_t> possible, Farther farther) {
    for (std::size_t i = 0; i < cells.size(); ++i) {
        const auto added = cells[i] < 0 ? std::int16_t{0} : value;
        possible[i] = farther(possible[i], wrapped(possible[i] + added));
    }
    for (std::int16_t& sum : possible.subspan(cells.size()))
        sum = farther(sum, wrapped(sum + value));
}

}  // namespace

void addEarned(std::span<const PackedPoints> cells, std::span<std::int16_t> earned) {
    for (std::size_t i = 0; i < cells.size(); ++i) {
        const std::int16_t cut = wrapped(earned[i] + (cells[i] >> packedWholeShift));
        const std::int16_t sum = wrapped(cut + rounding(cut, cells[i] & packedFractionMask));
        earned[i] = std::max(earned[i], sum);
    }
}

void addEarned(const CellPoints& cell, std::int16_t& earned) {
    const std::int32_t cut = earned + cell.whole;
    const std::int32_t sum = cut + rounding(cut, packedFraction(cell.fraction));
    if (sum == wrapped(sum)) earned = wrapped(sum);
}

void addPossible(std::int16_t value, std::span<const PackedPoints> cells,
                 std::span<std::int16_t> possible) {
    const auto higher = [](std::int16_t left, std::int16_t right) { return std::max(left, right); };
    const auto lower = [](std::int16_t left, std::int16_t right) { return std::min(left, right); };
    if (value == 0) return;  // as of every assignment that a file only claims
    if (value < 0)
        addPossible(value, cells, possible, lower);
    else
        addPossible(value, cells, possible, higher);
}

std::size_t findMarked(std::span<const PackedPoints> cells, std::size_t start, int marks) {
    // Few are, so whole groups are passed over.
    constexpr std::size_t group = 32;
    const auto groupHasNone = [&](std::size_t first) {
        PackedPoints any = 0;
        for (const PackedPoints cell : cells.subspan(first).first<group>())
            any = static_cast<PackedPoints>(any | cell);
        return (any & marks) == 0;
    };
    std::size_t index = start;
    while (index + group <= cells.size() && groupHasNone(index)) index += group;
    while (index < cells.size() && (cells[index] & marks) == 0) ++index;
    return index;
}

PackedSum sumOf(std::span<const PackedPoints> cells) {
    PackedSum sum;
    for (const PackedPoints points : cells) {
        sum.wholeParts += std::max<PackedPoints>(points, 0) >> packedWholeShift;
        sum.count += points > 0 ? 1 : 0;
    }
    return sum;
}

}  // namespace quorvel
