#include "window/Controls.h"

#include <gtest/gtest.h>

namespace quorvel {

TEST(ScrollBar, StopsAtTheEndsOfItsRange) {
    ScrollBar bar;
    bar.setMaximum(7);
    bar.moveTo(9);
    EXPECT_EQ(bar.position(), 7);
    bar.moveTo(-1);
    EXPECT_EQ(bar.position(), 0);
}

TEST(ScrollBar, ARangeThatNoLongerHoldsThePositionMovesItAndRaisesTheHandler) {
    ScrollBar bar;
    bar.setMaximum(7);
    bar.moveTo(7);
    int changes = 0;
    bar.onChange([&changes] { ++changes; });
    bar.setMaximum(8);
    EXPECT_EQ(changes, 0);
    bar.setMaximum(3);
    EXPECT_EQ(bar.position(), 3);
    EXPECT_EQ(changes, 1);
    bar.setMinimum(3);
    EXPECT_EQ(changes, 1);
    bar.setMaximum(9);
    bar.setMinimum(5);
    EXPECT_EQ(bar.position(), 5);
    EXPECT_EQ(changes, 2);
}

TEST(ScrollBar, MovingToWhereItStandsRaisesNothing) {
    ScrollBar bar;
    bar.setMaximum(3);
    bar.moveTo(2);
    bar.onChange([] { FAIL() << "nothing moved"; });
    bar.moveTo(2);
}

TEST(ScrollBar, AMinimumAboveTheMaximumIsToleratedForAMoment) {
    ScrollBar bar;
    bar.setMinimum(1);
    EXPECT_EQ(bar.position(), 0);
    bar.setMaximum(1);
    EXPECT_EQ(bar.position(), 1);
}

}  // namespace quorvel
