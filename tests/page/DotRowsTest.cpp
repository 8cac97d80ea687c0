#include <algorithm>
#include <cmath>
#include <map>
#include <random>

#include <gtest/gtest.h>

#include "page/DotRows.h"

namespace quorvel {
namespace {

/// Every tenth of a percent has two places of its own.
constexpr PercentAxis halfAxis{.from = 500, .to = 1000};

/// The middles of the dots, by the index of their percentage.
struct Middle {
    std::int64_t along;
    std::int64_t up;

    bool operator==(const Middle&) const = default;
};

std::map<std::size_t, Middle> middlesOf(const DotRows& dots) {
    std::map<std::size_t, Middle> middles;
    for (const DotRun& run : dots.runs) {
        for (std::size_t number = 0; number < run.dots.size(); ++number) {
            const auto way = static_cast<std::int64_t>(number) * dots.width;
            const Middle middle{run.left + way, run.row * dots.width};
            EXPECT_TRUE(middles.emplace(run.dots[number], middle).second);
        }
    }
    return middles;
}

void expectThatNoneTouch(const DotRows& dots) {
    const auto middles = middlesOf(dots);
    for (const auto& [one, middle] : middles) {
        for (const auto& [other, otherMiddle] : middles) {
            if (one == other) continue;
            const std::int64_t along = middle.along - otherMiddle.along;
            const std::int64_t up = middle.up - otherMiddle.up;
            EXPECT_GE(along * along + up * up, dots.width * dots.width) << one << ' ' << other;
        }
    }
}

std::vector<std::int64_t> aroundSeventyFive(std::size_t count) {
    std::mt19937 random(1);
    std::vector<std::int64_t> percentages(count);
    for (std::int64_t& percentage : percentages) {
        std::int64_t sum = 0;  // of twelve even chances: the familiar bell
        for (int part = 0; part < 12; ++part) sum += static_cast<std::int64_t>(random() % 280);
        percentage = std::min<std::int64_t>(1000, 750 + (sum - 6 * 280) / 3);
    }
    return percentages;
}

TEST(DotRows, TiesStandSideBySideAboutTheirPercentage) {
    const DotRows dots = dotRows({800, 700, 800, 800, 700}, halfAxis, 10);
    EXPECT_EQ(dots.rows, 1);
    EXPECT_EQ(dots.runs, (std::vector<DotRun>{{395, 0, {1, 4}}, {590, 0, {0, 2, 3}}}));
    EXPECT_EQ(dotRows({}, halfAxis, 10).rows, 0);
    EXPECT_EQ(dotRows({750}, halfAxis, 10).runs, (std::vector<DotRun>{{500, 0, {0}}}));
}

TEST(DotRows, WhatHasNoRoomBesideAnotherPercentageStandsOverIt) {
    // Dots of 10 with a gap of 5 between percentages: 700 and 707 are 14 apart, 708 is 16 from 700.
    const DotRows dots = dotRows({700, 707, 708}, halfAxis, 10);
    EXPECT_EQ(dots.runs, (std::vector<DotRun>{{400, 0, {0}}, {414, 1, {1}}, {416, 0, {2}}}));
    EXPECT_EQ(dots.rows, 2);
    const DotRows ties = dotRows({700, 710, 710, 710}, halfAxis, 10);
    EXPECT_EQ(ties.runs[1], (DotRun{410, 1, {1, 2, 3}}));
}

TEST(DotRows, MoreTiesThanFiveAreABlockOfEvenRows) {
    const std::pair<std::size_t, std::vector<std::size_t>> rows[] = {
        {5, {5}},        {6, {3, 3}},           {12, {4, 4, 4}},
        {13, {5, 5, 3}}, {26, {6, 6, 6, 6, 2}}, {101, {10, 10, 10, 10, 10, 10, 10, 10, 10, 10, 1}}};
    for (const auto& [count, lengths] : rows) {
        const DotRows dots = dotRows(std::vector<std::int64_t>(count, 750), halfAxis, 10);
        ASSERT_EQ(dots.runs.size(), lengths.size()) << count;
        for (std::size_t row = 0; row < lengths.size(); ++row) {
            const DotRun& run = dots.runs[row];
            EXPECT_EQ(run.row, static_cast<int>(row));
            EXPECT_EQ(run.dots.size(), lengths[row]) << count;
            const auto length = static_cast<std::int64_t>(lengths[row] - 1) * 10;
            EXPECT_EQ(run.left, 500 - length / 2) << count;
        }
    }
}

TEST(DotRows, ABlockNeedsItsRowsOnEachOther) {
    // 700 leaves the foot free to 720, 714 stands over it, so the block of 720 has to go higher.
    std::vector<std::int64_t> percentages = {700, 706};
    percentages.insert(percentages.end(), 6, 712);
    const DotRows dots = dotRows(percentages, halfAxis, 10);
    EXPECT_EQ(dots.runs[1], (DotRun{412, 1, {1}}));
    EXPECT_EQ(dots.runs[2].row, 2);
    EXPECT_EQ(dots.runs[3].row, 3);
}

TEST(DotRows, OneBeyondTheAxisIsNoTieOfAnother) {
    const DotRows dots = dotRows({3000, 4000}, halfAxis, 10);
    ASSERT_EQ(dots.runs.size(), 2U);
    EXPECT_EQ(dots.runs[0].left, 1000);
    EXPECT_EQ(dots.runs[1], (DotRun{1000, 1, {1}}));
}

TEST(DotRows, AThousandAreAllThereAndNoneTouch) {
    const std::vector<std::int64_t> percentages = aroundSeventyFive(1000);
    const auto [lowest, highest] = std::ranges::minmax(percentages);
    const DotRows dots = dotRows(percentages, axisFor(lowest, highest));
    EXPECT_EQ(middlesOf(dots).size(), percentages.size());
    EXPECT_GE(dots.width, 8);
    EXPECT_LE(dots.rows * dots.width, 300);
    expectThatNoneTouch(dots);
    for (const DotRun& run : dots.runs) {
        for (const std::size_t index : run.dots) {
            EXPECT_EQ(percentages[index], percentages[run.dots.front()]);
        }
    }
}

TEST(DotRows, AThousandTiesAreOneBlock) {
    const DotRows dots = dotRows(std::vector<std::int64_t>(1000, 750), halfAxis);
    EXPECT_EQ(middlesOf(dots).size(), 1000U);
    EXPECT_EQ(dots.width, 6);
    EXPECT_EQ(dots.rows, 63);
    EXPECT_EQ(dots.runs.front().dots.size(), 16U);
}

TEST(DotRows, AFewAreLargeAndManySmall) {
    EXPECT_EQ(dotRows({700, 800}, halfAxis).width, 20);
    EXPECT_EQ(dotRows(aroundSeventyFive(30), halfAxis).width, 20);
    EXPECT_LT(dotRows(aroundSeventyFive(300), halfAxis).width, 20);
    EXPECT_EQ(dotRows(std::vector<std::int64_t>(30'000, 0), halfAxis).width, 6);
}

}  // namespace
}  // namespace quorvel
