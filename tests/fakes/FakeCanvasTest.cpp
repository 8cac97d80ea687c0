#include "tests/fakes/FakeCanvas.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

class FakeCanvasTest : public testing::Test {
  protected:
    FakeCanvasTest() { canvas_.load({}, CanvasSize::Wide); }

    void copy(int glyph, int x, int y) { canvas_.copyGlyph(Surface::Grid, glyph, x, y); }
    int shownAt(int x, int y) {
        canvas_.show();
        return canvas_.glyphAt(Surface::Grid, x, y);
    }

    FakeCanvas canvas_;
};

TEST_F(FakeCanvasTest, AFreshCanvasIsBare) {
    EXPECT_EQ(canvas_.glyphAt(Surface::Grid, 3, 16), FakeCanvas::bare);
    EXPECT_EQ(canvas_.glyphAt(Surface::Bottom, 3, 2), FakeCanvas::bare);
}

TEST_F(FakeCanvasTest, AGlyphIsSeenWhereItWasCopiedOnceItIsShown) {
    copy(7, 3, 16);
    EXPECT_EQ(canvas_.glyphAt(Surface::Grid, 3, 16), FakeCanvas::bare);
    EXPECT_EQ(shownAt(3, 16), 7);
    EXPECT_EQ(shownAt(4, 16), FakeCanvas::unknown);
    EXPECT_EQ(canvas_.glyphAt(Surface::Bottom, 3, 16), FakeCanvas::bare);
}

TEST_F(FakeCanvasTest, ALaterCopyWinsPixelByPixel) {
    copy(7, 3, 16);
    copy(8, 3, 16);
    EXPECT_EQ(shownAt(3, 16), 8);
    copy(9, 7, 16);
    EXPECT_EQ(shownAt(7, 16), 9);
    EXPECT_EQ(shownAt(3, 16), FakeCanvas::unknown);
}

TEST_F(FakeCanvasTest, BlanksOfOneSetLookTheSameWhereverTheyWereCopiedTo) {
    copy(27, 3, 16);
    copy(27, 7, 16);
    EXPECT_EQ(shownAt(5, 16), 27);
    copy(28, 7, 16);
    EXPECT_EQ(shownAt(3, 16), FakeCanvas::unknown);
}

TEST_F(FakeCanvasTest, WhatLiesOutsideIsCutOff) {
    copy(7, 584, 16);
    EXPECT_EQ(shownAt(584, 16), FakeCanvas::unknown);
    copy(7, -4, -6);
    EXPECT_EQ(shownAt(4, 6), FakeCanvas::bare);
    EXPECT_EQ(shownAt(0, 0), FakeCanvas::unknown);
}

TEST_F(FakeCanvasTest, LoadingAndReleasingForgetEverything) {
    copy(7, 3, 16);
    canvas_.show();
    canvas_.load({}, CanvasSize::Small);
    EXPECT_EQ(canvas_.size(), CanvasSize::Small);
    EXPECT_EQ(shownAt(3, 16), FakeCanvas::bare);
    EXPECT_EQ(shownAt(436, 16), FakeCanvas::unknown);
    canvas_.release();
    EXPECT_FALSE(canvas_.isLoaded());
    copy(7, 3, 16);
    EXPECT_EQ(shownAt(3, 16), FakeCanvas::unknown);
}

TEST_F(FakeCanvasTest, AGlyphThatDoesNotExistIsAMistake) {
    EXPECT_THROW(copy(35, 3, 16), std::logic_error);
    EXPECT_THROW(copy(-1, 3, 16), std::logic_error);
}

}  // namespace
}  // namespace quorvel
