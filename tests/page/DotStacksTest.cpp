#include <gtest/gtest.h>

#include "page/DotStacks.h"

namespace quorvel {
namespace {

std::vector<int> rowsOf(const std::vector<std::int64_t>& places, std::int64_t width) {
    std::vector<int> rows(places.size());
    for (const Dot& dot : stackDots(places, width)) rows[dot.index] = dot.row;
    return rows;
}

TEST(DotStacks, EveryDotIsAsLowAsItGoesWithoutTouchingAnother) {
    EXPECT_EQ(rowsOf({}, 10), (std::vector<int>{}));
    EXPECT_EQ(rowsOf({50, 50, 50}, 10), (std::vector<int>{0, 1, 2}));
    EXPECT_EQ(rowsOf({30, 20, 10}, 10), (std::vector<int>{0, 0, 0}));
    EXPECT_EQ(rowsOf({0, 9, 10, 18, 19}, 10), (std::vector<int>{0, 1, 0, 2, 1}));
}

TEST(DotStacks, KeepsThePlacesAndCountsTheRows) {
    const std::vector<Dot> dots = stackDots({7, 3, 7}, 10);
    EXPECT_EQ(dots, (std::vector<Dot>{{1, 3, 0}, {0, 7, 1}, {2, 7, 2}}));
    EXPECT_EQ(rowCount(dots), 3);
    EXPECT_EQ(rowCount({}), 0);
}

TEST(DotStacks, NoTwoDotsTouch) {
    std::vector<std::int64_t> places(500);
    for (int i = 0; i < 500; ++i)
        places[static_cast<std::size_t>(i)] = std::int64_t{i} * i * 31 % 997;
    const std::vector<Dot> dots = stackDots(places, 7);
    ASSERT_EQ(dots.size(), places.size());
    for (const Dot& one : dots) {
        EXPECT_EQ(one.place, places[one.index]);
        for (const Dot& other : dots) {
            if (one.index == other.index || one.row != other.row) continue;
            EXPECT_GE(std::abs(one.place - other.place), 7);
        }
    }
}

}  // namespace
}  // namespace quorvel
