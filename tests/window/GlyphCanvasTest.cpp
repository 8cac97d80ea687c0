#include "tests/fakes/FakeCanvas.h"
#include "window/GlyphCanvas.h"

#include <gtest/gtest.h>

namespace quorvel {

namespace {

/// A canvas that counts the copies.
class CountingCanvas final : public Canvas {
  public:
    int copies = 0;
    int shows = 0;

    void load(const std::filesystem::path&, CanvasSize) override {}
    void release() override {}
    void copyGlyph(Surface, int, int, int) override { ++copies; }
    void show() override { ++shows; }
};

}  // namespace

TEST(GlyphCanvas, CopiesOnlyWhatDiffersFromTheLastTime) {
    CountingCanvas counter;
    GlyphCanvas canvas(counter);
    canvas.placeText(Surface::Grid, GlyphSet::Plain, "17", 3, 16, 3);
    canvas.finish();
    EXPECT_EQ(counter.copies, 3);
    canvas.placeText(Surface::Grid, GlyphSet::Plain, "18", 3, 16, 3);
    canvas.finish();
    EXPECT_EQ(counter.copies, 4);
    EXPECT_EQ(counter.shows, 2);
}

TEST(GlyphCanvas, ForgetsWhatItShowedWhenTheCanvasesAreLoadedAnew) {
    CountingCanvas counter;
    GlyphCanvas canvas(counter);
    canvas.placeBlanks(Surface::Grid, GlyphSet::Plain, 3, 16, 3);
    canvas.finish();
    canvas.load("/Quorvel", CanvasSize::Wide);
    canvas.placeBlanks(Surface::Grid, GlyphSet::Plain, 3, 16, 3);
    canvas.finish();
    EXPECT_EQ(counter.copies, 6);
}

TEST(GlyphCanvas, TheGlyphPlacedLastStaysOnTopWhereTwoOverlap) {
    FakeCanvas shown;
    GlyphCanvas canvas(shown);
    canvas.load("/Quorvel", CanvasSize::Wide);
    // The figure is placed before and behind the blank that overlaps it, as a refresh does.
    canvas.placeText(Surface::Grid, GlyphSet::Plain, " ", 528, 16, 1);
    canvas.placeText(Surface::Grid, GlyphSet::Plain, " ", 532, 16, 1);
    canvas.placeText(Surface::Grid, GlyphSet::Plain, "8", 528, 16, 1);
    canvas.finish();
    EXPECT_EQ(shown.glyphAt(Surface::Grid, 528, 16), glyph::digit(8, GlyphSet::Plain));
}

TEST(GlyphCanvas, ATextThatDoesNotFitIsDecimalPointsInAllSlots) {
    FakeCanvas shown;
    GlyphCanvas canvas(shown);
    canvas.load("/Quorvel", CanvasSize::Wide);
    canvas.placeText(Surface::Grid, GlyphSet::Double, "1000", 3, 16, 3);
    canvas.placeText(Surface::Grid, GlyphSet::Double, "-7", 33, 16, 3);
    canvas.finish();
    for (const int x : {3, 11, 19, 33, 41, 49})
        EXPECT_EQ(shown.glyphAt(Surface::Grid, x, 16), glyph::decimalPoint) << "at x " << x;
}

TEST(GlyphIndices, ArePlacedAsTheBitmapsAre) {
    EXPECT_EQ(glyph::digit(9, GlyphSet::Plain), 9);
    EXPECT_EQ(glyph::letter('E', GlyphSet::Plain), 14);
    EXPECT_EQ(glyph::digit(0, GlyphSet::Double), 17);
    EXPECT_EQ(glyph::digit(9, GlyphSet::Double), 26);
    EXPECT_EQ(glyph::blank(GlyphSet::Plain), 27);
    EXPECT_EQ(glyph::blank(GlyphSet::Double), 28);
    EXPECT_EQ(glyph::letter('A', GlyphSet::Double), 29);
    EXPECT_EQ(glyph::letter('E', GlyphSet::Double), 33);
}

}  // namespace quorvel
