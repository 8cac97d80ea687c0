#include <gtest/gtest.h>

#include "page/PercentAxis.h"

namespace quorvel {
namespace {

TEST(PercentAxis, HasItsPercentagesAndAHundredOnIt) {
    struct Row {
        std::int64_t lowest, highest, from, to;
    };
    const Row rows[] = {{600, 940, 500, 1000},  // never less than half
                        {409, 1001, 400, 1100}, {0, 0, 0, 1000},        {499, 1100, 400, 1100},
                        {-1, 500, 0, 1000},     {990, 1000, 500, 1000}, {0, 1'000'000, 0, 2000}};
    for (const Row& row : rows) {
        EXPECT_EQ(axisFor(row.lowest, row.highest), (PercentAxis{row.from, row.to})) << row.lowest;
    }
}

TEST(PercentAxis, WhatIsBeyondStandsAtTheEnd) {
    const PercentAxis axis{.from = 500, .to = 1000};
    const std::pair<std::int64_t, std::int64_t> rows[] = {
        {500, 0}, {501, 2}, {750, 500}, {1000, 1000}, {0, 0}, {-5, 0}, {1001, 1000}};
    for (const auto& [percentage, place] : rows) EXPECT_EQ(axis.place(percentage), place);
    EXPECT_TRUE(axis.holds(500));
    EXPECT_TRUE(axis.holds(1000));
    EXPECT_FALSE(axis.holds(499));
    EXPECT_FALSE(axis.holds(1001));
}

}  // namespace
}  // namespace quorvel
