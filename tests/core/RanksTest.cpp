#include <algorithm>
#include <cstdint>
#include <limits>
#include <random>
#include <vector>

#include "core/Ranks.h"

#include <gtest/gtest.h>

namespace quorvel {

namespace {

using Percentages = std::vector<std::int32_t>;
using Ranks = std::vector<int>;

/// One more than there are better ones.
Ranks expectedRanks(const Percentages& percentages) {
    Ranks ranks;
    for (const std::int32_t percentage : percentages)
        ranks.push_back(1 + static_cast<int>(std::ranges::count_if(
                                percentages, [=](auto other) { return other > percentage; })));
    return ranks;
}

}  // namespace

TEST(Ranks, AreOneForTheBestAndSkipAsManyAsAreTied) {
    EXPECT_EQ(ranksOf(Percentages{}), Ranks{});
    EXPECT_EQ(ranksOf(Percentages{0}), Ranks{1});
    EXPECT_EQ(ranksOf(Percentages{905, 1000, 905, -3, 1000, 905}), (Ranks{3, 1, 3, 6, 1, 3}));
    EXPECT_EQ(ranksOf(Percentages{7, 7, 7}), (Ranks{1, 1, 1}));
}

TEST(Ranks, FollowAnyPercentageThatAStudentCanHave) {
    constexpr std::int32_t highest = 32767 * 1000;
    EXPECT_EQ(ranksOf(Percentages{-highest - 1000, highest, 0, -1, 1}), (Ranks{5, 1, 3, 4, 2}));
    constexpr std::int32_t largest = std::numeric_limits<std::int32_t>::max();
    EXPECT_EQ(ranksOf(Percentages{-largest - 1, largest, 0}), (Ranks{3, 1, 2}));
}

TEST(Ranks, AreOneMoreThanThereAreBetterOnes) {
    std::mt19937 random(5);
    for (const std::int32_t range : {1, 2, 100, 255, 256, 257, 65'536, 5'000'000, 65'000'000})
        for (std::size_t size = 1; size < 200; size += 9) {
            std::uniform_int_distribution<std::int32_t> any(-range / 2, range - range / 2);
            Percentages percentages(size);
            for (std::int32_t& percentage : percentages) percentage = any(random);
            ASSERT_EQ(ranksOf(percentages), expectedRanks(percentages)) << range << ", " << size;
        }
}

}  // namespace quorvel
