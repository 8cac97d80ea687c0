#include <array>
#include <cmath>
#include <cstdint>
#include <random>
#include <vector>

#include "core/PointSums.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

constexpr int smallest = -32768;
constexpr int largest = 32767;

bool fits(int sum) {
    return sum >= smallest && sum <= largest;
}

/// By the rule, in quarters: halves go to the even neighbour.
std::int16_t expectedEarned(std::int16_t earned, const CellPoints& cell) {
    constexpr int quarters[] = {0, 1, 2, 3};
    if (cell.empty || cell.excused) return earned;
    const double sum = earned + cell.whole + quarters[static_cast<int>(cell.fraction)] / 4.0;
    const int rounded = static_cast<int>(std::nearbyint(sum));
    return fits(rounded) ? static_cast<std::int16_t>(rounded) : earned;
}

std::int16_t expectedPossible(std::int16_t possible, std::int16_t value, bool isExcused) {
    const int sum = possible + value;
    return isExcused || !fits(sum) ? possible : static_cast<std::int16_t>(sum);
}

std::vector<CellPoints> everyKindOfCell() {
    std::vector<CellPoints> cells{{}, {.excused = true, .empty = false}};
    for (const int whole : {0, 1, 2, 17, 1022, 1023})
        for (const auto fraction :
             {Fraction::None, Fraction::BelowHalf, Fraction::Half, Fraction::AboveHalf})
            cells.push_back({.whole = whole, .fraction = fraction, .empty = false});
    return cells;
}

std::vector<std::int16_t> sumsOfInterest() {
    std::vector<std::int16_t> sums;
    for (const int middle : {smallest, -4096, 0, largest - 4096, largest})
        for (int sum = middle - 20; sum <= middle + 20; ++sum)
            if (fits(sum)) sums.push_back(static_cast<std::int16_t>(sum));
    return sums;
}

bool equal(const CellPoints& left, const CellPoints& right) {
    return left.whole == right.whole && left.fraction == right.fraction &&
           left.excused == right.excused && left.empty == right.empty;
}

TEST(PackedPoints, GivesBackWhatWasPacked) {
    for (const CellPoints& cell : everyKindOfCell()) {
        ASSERT_TRUE(canBePacked(cell));
        EXPECT_TRUE(equal(unpacked(packed(cell)), cell)) << cell.whole;
    }
}

TEST(PackedPoints, HasRoomForUsualScores) {
    EXPECT_FALSE(canBePacked({.whole = 1024, .empty = false}));
    EXPECT_FALSE(canBePacked({.whole = -1, .empty = false}));
    EXPECT_FALSE(canBePacked({.whole = CellPoints::wholeLimit, .empty = false}));
    EXPECT_FALSE(canBePacked({.whole = -CellPoints::wholeLimit, .empty = false}));
}

TEST(PointSums, AddWhatACellCounts) {
    const auto sums = sumsOfInterest();
    for (const CellPoints& cell : everyKindOfCell()) {
        std::vector<std::int16_t> earned = sums;
        addEarned(std::vector(sums.size(), packed(cell)), earned);
        for (std::size_t i = 0; i < sums.size(); ++i)
            ASSERT_EQ(earned[i], expectedEarned(sums[i], cell))
                << sums[i] << " and " << cell.whole << ", " << static_cast<int>(cell.fraction);
    }
}

TEST(PointSums, AddACellThatCannotBePacked) {
    for (const int whole : {-CellPoints::wholeLimit, -65536, -65535, -40000, -1, 1024, 40000, 65535,
                            65536, CellPoints::wholeLimit}) {
        for (const auto fraction : {Fraction::None, Fraction::Half, Fraction::AboveHalf}) {
            const CellPoints cell{.whole = whole, .fraction = fraction, .empty = false};
            for (const std::int16_t sum : sumsOfInterest()) {
                std::int16_t earned = sum;
                addEarned(cell, earned);
                ASSERT_EQ(earned, expectedEarned(sum, cell)) << sum << " and " << whole;
            }
        }
    }
}

TEST(PointSums, AddAValueToThosePossible) {
    const auto sums = sumsOfInterest();
    for (const int value : {smallest, -20, -1, 0, 1, 20, largest}) {
        const auto added = static_cast<std::int16_t>(value);
        for (const CellPoints& cell : everyKindOfCell()) {
            // The last third of the students has no cell.
            std::vector<std::int16_t> possible = sums;
            const std::size_t cells = sums.size() * 2 / 3;
            addPossible(added, std::vector(cells, packed(cell)), possible);
            for (std::size_t i = 0; i < sums.size(); ++i)
                ASSERT_EQ(possible[i], expectedPossible(sums[i], added, i < cells && cell.excused))
                    << sums[i] << " and " << value;
        }
    }
}

TEST(PointSums, AddToEachStudentItsOwnCell) {
    const auto kinds = everyKindOfCell();
    std::mt19937 random(7);
    for (std::size_t size = 0; size < 50; ++size) {
        std::vector<CellPoints> cells;
        std::vector<PackedPoints> packedCells;
        std::vector<std::int16_t> earned;
        for (std::size_t i = 0; i < size; ++i) {
            cells.push_back(kinds[random() % kinds.size()]);
            packedCells.push_back(packed(cells.back()));
            earned.push_back(static_cast<std::int16_t>(random() % 65536));
        }
        const auto before = earned;
        addEarned(packedCells, earned);
        for (std::size_t i = 0; i < size; ++i)
            ASSERT_EQ(earned[i], expectedEarned(before[i], cells[i])) << size << ", " << i;
    }
}

TEST(PointSums, FindTheCellsThatAreMarked) {
    constexpr int mark = 16;
    for (const std::size_t size : std::array<std::size_t, 6>{0, 1, 31, 32, 33, 100}) {
        for (std::size_t wanted = 0; wanted <= size; ++wanted) {
            std::vector<PackedPoints> cells(size, packed({.whole = 17, .empty = false}));
            EXPECT_EQ(findMarked(cells, 0, mark), size);
            if (wanted == size) continue;
            cells[wanted] = packed({.whole = 0, .fraction = Fraction::Half, .empty = false});
            EXPECT_EQ(findMarked(cells, 0, mark), size);
            cells[wanted] = mark;
            EXPECT_EQ(findMarked(cells, 0, mark), wanted);
            EXPECT_EQ(findMarked(cells, wanted, mark), wanted);
            EXPECT_EQ(findMarked(cells, wanted + 1, mark), size);
        }
    }
}

TEST(PointSums, AddUpTheNumbersOfAColumn) {
    const auto kinds = everyKindOfCell();
    for (std::size_t size = 0; size < 100; ++size) {
        std::vector<PackedPoints> cells;
        int wholeParts = 0;
        int count = 0;
        for (std::size_t i = 0; i < size; ++i) {
            const CellPoints& cell = kinds[i * 7 % kinds.size()];
            cells.push_back(packed(cell));
            wholeParts += cell.whole;
            count += cell.empty || cell.excused ? 0 : 1;
        }
        const PackedSum sum = sumOf(cells);
        ASSERT_EQ(sum.wholeParts, wholeParts);
        ASSERT_EQ(sum.count, count);
    }
    const PackedSum most = sumOf(std::vector(32767, packed({.whole = 1023, .empty = false})));
    EXPECT_EQ(most.wholeParts, 32767 * 1023);
}

}  // namespace
}  // namespace quorvel
