#include "window/Wheel.h"

#include <gtest/gtest.h>

namespace quorvel {

namespace {

constexpr WheelSetting threeLines{};
constexpr WheelSetting pages{.lines = 0, .wholePages = true};
constexpr int page = 20;

}  // namespace

TEST(Wheel, ANotchGoesAsManyStepsAsTheSystemSays) {
    EXPECT_EQ(WheelTurns().stepsOf(120, threeLines, page), 3);
    EXPECT_EQ(WheelTurns().stepsOf(-120, threeLines, page), -3);
    EXPECT_EQ(WheelTurns().stepsOf(240, {.lines = 1}, page), 2);
    EXPECT_EQ(WheelTurns().stepsOf(120, {.lines = 0}, page), 0);
    EXPECT_EQ(WheelTurns().stepsOf(120, pages, page), 20);
}

TEST(Wheel, PartsOfANotchAddUpToSteps) {
    WheelTurns wheel;
    EXPECT_EQ(wheel.stepsOf(30, threeLines, page), 0);
    EXPECT_EQ(wheel.stepsOf(30, threeLines, page), 1);
    EXPECT_EQ(wheel.stepsOf(60, threeLines, page), 2);
}

TEST(Wheel, TurningBackForgetsTheRest) {
    WheelTurns wheel;
    EXPECT_EQ(wheel.stepsOf(39, threeLines, page), 0);
    EXPECT_EQ(wheel.stepsOf(-40, threeLines, page), -1);
}

}  // namespace quorvel
