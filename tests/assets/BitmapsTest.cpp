#include <array>
#include <cstdint>
#include <cstdlib>
#include <ostream>
#include <set>
#include <string>
#include <vector>

#include "window/CanvasPlaces.h"
#include "window/Layout.h"

#include <gtest/gtest.h>

#include "FileBytes.h"

namespace quorvel {
namespace {

struct Colour24 {
    int red = 0;
    int green = 0;
    int blue = 0;

    auto operator<=>(const Colour24&) const = default;
};

void PrintTo(const Colour24& colour, std::ostream* stream) {
    *stream << '(' << colour.red << ' ' << colour.green << ' ' << colour.blue << ')';
}

/// A bitmap as the program's own folder holds it.
class Bitmap {
  public:
    explicit Bitmap(const std::string& name) : bytes_(fileBytes(name)) {
        EXPECT_EQ(bytes_.substr(0, 2), "BM") << name;
        EXPECT_EQ(numberAt(bytes_, 2), static_cast<int>(bytes_.size())) << name;
        EXPECT_EQ(numberAt(bytes_, 14), 40) << name;
        EXPECT_EQ(byteAt(bytes_, 28), 24) << name << " has other than 24 bits a pixel";
        EXPECT_EQ(numberAt(bytes_, 30), 0) << name << " is compressed";
        EXPECT_EQ(static_cast<int>(bytes_.size()), headerSize + rowSize() * height()) << name;
    }

    int width() const { return numberAt(bytes_, 18); }
    int height() const { return numberAt(bytes_, 22); }
    Colour24 at(int x, int y) const {
        const int pixel = headerSize + rowSize() * (height() - 1 - y) + 3 * x;
        const auto place = static_cast<std::size_t>(pixel);
        return {byteAt(bytes_, place + 2), byteAt(bytes_, place + 1), byteAt(bytes_, place)};
    }

    /// True where the 8 x 12 pixels from (left, top) have that one colour.
    bool glyphPlaceIs(int left, int top, Colour24 colour) const {
        for (int y = top; y < top + Canvas::glyphHeight; ++y) {
            for (int x = left; x < left + Canvas::glyphWidth; ++x) {
                if (at(x, y) != colour) return false;
            }
        }
        return true;
    }

  private:
    static constexpr int headerSize = 14 + 40;  // bytes of the file's and the picture's header

    int rowSize() const { return (width() * 3 + 3) / 4 * 4; }

    std::string bytes_;
};

const std::array<std::string, 16> shapes{"0", "1", "2", "3", "4", "5", "6", "7",
                                         "8", "9", "A", "B", "C", "D", "E", "F"};

std::vector<std::string> glyphFiles() {
    std::vector<std::string> files{"DP.bmp", "_.bmp", "__.bmp"};
    files.reserve(Canvas::glyphCount);
    for (const std::string& shape : shapes) {
        files.push_back(shape + ".bmp");
        files.push_back(shape + shape + ".bmp");
    }
    return files;
}

Colour24 plainColour() {
    return Bitmap("_.bmp").at(0, 0);
}

Colour24 doubleColour() {
    return Bitmap("__.bmp").at(0, 0);
}

Colour24 colourOf(GlyphSet set) {
    return set == GlyphSet::Plain ? plainColour() : doubleColour();
}

/// How bright a colour looks, from 0 to 1.
double brightness(Colour24 colour) {
    return (0.2126 * colour.red + 0.7152 * colour.green + 0.0722 * colour.blue) / 255;
}

/// The colour that most of a shape is drawn in: the darkest.
Colour24 inkColour() {
    const Bitmap point("DP.bmp");
    Colour24 darkest = plainColour();
    for (int y = 0; y < point.height(); ++y) {
        for (int x = 0; x < point.width(); ++x) {
            if (brightness(point.at(x, y)) < brightness(darkest)) darkest = point.at(x, y);
        }
    }
    return darkest;
}

/// The figures of a row that a refresh clears or draws: left edges of 8 pixels.
std::vector<int> figurePlaces(const Layout& layout) {
    using namespace canvas_places;
    std::vector<int> places;
    for (int column = 0; column < layout.visibleColumns; ++column) {
        for (int slot = 0; slot < scoreSlots; ++slot) {
            places.push_back(slotLeft(scoreLeft(column), slot));
        }
    }
    for (int slot = 0; slot < pointsSlots; ++slot) {
        places.push_back(slotLeft(pointsEarnedLeft + layout.rightColumnsShift, slot));
        places.push_back(slotLeft(pointsPossibleLeft + layout.rightColumnsShift, slot));
    }
    for (int slot = 0; slot < percentageSlots; ++slot) {
        places.push_back(slotLeft(percentageLeft + layout.rightColumnsShift, slot));
    }
    places.push_back(letterGradeLeft + layout.rightColumnsShift);
    return places;
}

struct CanvasCase {
    const char* name;
    Layout layout;
    const char* grid;
    const char* bottom;
};

void PrintTo(const CanvasCase& canvas, std::ostream* stream) {
    *stream << canvas.name;
}

CanvasCase wideCanvas() {
    return {"wide", layoutFor({1024, 768}), "Graph.bmp", "GraphBottom.bmp"};
}

CanvasCase smallCanvas() {
    return {"small", layoutFor({640, 480}), "GraphS.bmp", "GraphBottomS.bmp"};
}

class Canvases : public testing::TestWithParam<CanvasCase> {};

INSTANTIATE_TEST_SUITE_P(Layouts, Canvases, testing::Values(wideCanvas(), smallCanvas()),
                         [](const auto& test) { return std::string(test.param.name); });

TEST(Bitmaps, ThereAreThirtyFiveGlyphsOfEightByTwelvePixels) {
    const std::vector<std::string> files = glyphFiles();
    EXPECT_EQ(files.size(), static_cast<std::size_t>(Canvas::glyphCount));
    for (const std::string& file : files) {
        const Bitmap glyph(file);
        EXPECT_EQ(glyph.width(), Canvas::glyphWidth) << file;
        EXPECT_EQ(glyph.height(), Canvas::glyphHeight) << file;
    }
}

TEST(Bitmaps, TheFourCanvasesHaveTheirSizes) {
    const auto size = [](const std::string& name) {
        const Bitmap bitmap(name);
        return std::pair(bitmap.width(), bitmap.height());
    };
    EXPECT_EQ(size("Graph.bmp"), std::pair(588, 324));
    EXPECT_EQ(size("GraphS.bmp"), std::pair(438, 324));
    EXPECT_EQ(size("GraphBottom.bmp"), std::pair(588, 42));
    EXPECT_EQ(size("GraphBottomS.bmp"), std::pair(438, 42));
}

TEST(Bitmaps, TheTwoRowColoursAreApartAndInkStandsOutOnBoth) {
    EXPECT_GT(brightness(plainColour()) - brightness(doubleColour()), 0.06);
    EXPECT_LT(brightness(plainColour()) - brightness(doubleColour()), 0.2);
    EXPECT_GT(brightness(doubleColour()) - brightness(inkColour()), 0.6);
}

TEST(Bitmaps, BlankGlyphsAreOneColour) {
    EXPECT_TRUE(Bitmap("_.bmp").glyphPlaceIs(0, 0, plainColour()));
    EXPECT_TRUE(Bitmap("__.bmp").glyphPlaceIs(0, 0, doubleColour()));
}

TEST(Bitmaps, TheTwoSetsDifferOnlyInTheBackground) {
    const Colour24 plain = plainColour();
    const Colour24 other = doubleColour();
    const Colour24 ink = inkColour();
    const auto halfway = [](int one, int two) { return (one + two) / 2; };
    for (const std::string& shape : shapes) {
        const Bitmap onPlain(shape + ".bmp");
        const Bitmap onDouble(shape + shape + ".bmp");
        for (int y = 0; y < Canvas::glyphHeight; ++y) {
            for (int x = 0; x < Canvas::glyphWidth; ++x) {
                const Colour24 pixel = onPlain.at(x, y);
                const Colour24 expected = pixel == plain ? other
                                          : pixel == ink ? ink
                                                         : Colour24{halfway(ink.red, other.red),
                                                                    halfway(ink.green, other.green),
                                                                    halfway(ink.blue, other.blue)};
                EXPECT_EQ(onDouble.at(x, y), expected) << shape << " at " << x << ' ' << y;
            }
        }
    }
}

TEST(Bitmaps, NoTwoFiguresLookTheSame) {
    std::set<std::vector<Colour24>> seen;
    for (const std::string& file : glyphFiles()) {
        const Bitmap glyph(file);
        std::vector<Colour24> pixels;
        pixels.reserve(std::size_t{Canvas::glyphWidth} * Canvas::glyphHeight);
        for (int i = 0; i < Canvas::glyphWidth * Canvas::glyphHeight; ++i) {
            pixels.push_back(glyph.at(i % Canvas::glyphWidth, i / Canvas::glyphWidth));
        }
        EXPECT_TRUE(seen.insert(pixels).second) << file;
    }
}

TEST(Bitmaps, FiguresLeaveRoomAtBothSides) {
    for (const std::string& shape : shapes) {
        const Bitmap glyph(shape + ".bmp");
        for (int y = 0; y < Canvas::glyphHeight; ++y) {
            EXPECT_EQ(glyph.at(0, y), plainColour()) << shape;
            EXPECT_EQ(glyph.at(Canvas::glyphWidth - 1, y), plainColour()) << shape;
        }
    }
}

TEST(Bitmaps, AllFiguresStandOnOneLine) {
    for (const std::string& shape : shapes) {
        const Bitmap glyph(shape + ".bmp");
        const auto hasInk = [&glyph](int y) {
            for (int x = 0; x < Canvas::glyphWidth; ++x)
                if (glyph.at(x, y) == inkColour()) return true;
            return false;
        };
        EXPECT_TRUE(hasInk(canvas_places::glyphBaseline - 1)) << shape;
        for (int y = canvas_places::glyphBaseline; y < Canvas::glyphHeight; ++y)
            EXPECT_FALSE(hasInk(y)) << shape;
    }
}

TEST_P(Canvases, ABlankGlyphDoesNotShowOnAnyRow) {
    const Bitmap grid(GetParam().grid);
    for (int row = 0; row < canvas_places::clearedBands; ++row) {
        const Colour24 colour = colourOf(canvas_places::rowSet(row));
        for (const int left : figurePlaces(GetParam().layout)) {
            EXPECT_TRUE(grid.glyphPlaceIs(left, canvas_places::rowTop(row), colour))
                << "row " << row << " at " << left;
        }
    }
}

TEST(Bitmaps, TheDecimalPointStandsHalfwayBetweenTheRowColours) {
    const Colour24 ground = Bitmap("DP.bmp").at(0, 0);
    const auto between = [](int one, int two) { return (one + two + 1) / 2; };
    const Colour24 plain = plainColour();
    const Colour24 other = doubleColour();
    EXPECT_EQ(ground, (Colour24{between(plain.red, other.red), between(plain.green, other.green),
                                between(plain.blue, other.blue)}));
}

TEST_P(Canvases, ColumnNumbersStandOnThePlainColour) {
    const Bitmap grid(GetParam().grid);
    for (int column = 0; column < GetParam().layout.visibleColumns; ++column) {
        for (int slot = 0; slot < canvas_places::scoreSlots; ++slot) {
            const int left = canvas_places::slotLeft(canvas_places::scoreLeft(column), slot);
            EXPECT_TRUE(grid.glyphPlaceIs(left, canvas_places::headingTop, plainColour()))
                << column;
        }
    }
}

TEST_P(Canvases, AFigureDoesNotShowItsFrameUnderTheGrid) {
    using namespace canvas_places;
    const Bitmap bottom(GetParam().bottom);
    for (int column = 0; column < GetParam().layout.visibleColumns; ++column) {
        for (int slot = 0; slot < scoreSlots; ++slot) {
            const int left = slotLeft(scoreLeft(column), slot);
            EXPECT_TRUE(bottom.glyphPlaceIs(left, averageScoreTop, colourOf(averageScoreSet)));
            EXPECT_TRUE(bottom.glyphPlaceIs(left, averagePercentTop, colourOf(averagePercentSet)));
        }
    }
    for (int slot = 0; slot < percentageSlots; ++slot) {
        EXPECT_TRUE(bottom.glyphPlaceIs(slotLeft(classAverageLeft, slot), classAverageTop,
                                        colourOf(classAverageSet)));
    }
    EXPECT_TRUE(bottom.glyphPlaceIs(classLetterLeft, classAverageTop, colourOf(classAverageSet)));
}

TEST_P(Canvases, ARuleStandsBehindEveryScoreColumn) {
    const Bitmap grid(GetParam().grid);
    const Bitmap bottom(GetParam().bottom);
    for (int column = 1; column <= GetParam().layout.visibleColumns; ++column) {
        const int x = columnPitch * column - 1;
        for (int row = 0; row < visibleRows; ++row) {
            const int y = canvas_places::rowTop(row);
            EXPECT_LT(brightness(grid.at(x, y)), brightness(doubleColour())) << column;
        }
        EXPECT_LT(brightness(bottom.at(x, canvas_places::averageScoreTop)),
                  brightness(doubleColour()));
    }
}

TEST_P(Canvases, EveryResultColumnHasAHeading) {
    using namespace canvas_places;
    const Bitmap grid(GetParam().grid);
    const int shift = GetParam().layout.rightColumnsShift;
    struct Column {
        int left;
        int slots;
    };
    for (const Column column :
         {Column{pointsEarnedLeft, pointsSlots}, Column{pointsPossibleLeft, pointsSlots},
          Column{percentageLeft, percentageSlots}, Column{letterGradeLeft, 1}}) {
        int inkPixels = 0;
        for (int y = 0; y < rowPitch; ++y) {
            for (int x = 0; x < column.slots * Canvas::glyphWidth; ++x) {
                inkPixels += grid.at(column.left + shift + x, y) == inkColour() ? 1 : 0;
            }
        }
        EXPECT_GE(inkPixels, 10) << column.left;
    }
}

TEST(Bitmaps, BothLayoutsLookAlikeButForTheNumberOfColumns) {
    for (const auto& [wideName, smallName] :
         {std::pair("Graph.bmp", "GraphS.bmp"), std::pair("GraphBottom.bmp", "GraphBottomS.bmp")}) {
        const Bitmap wide(wideName);
        const Bitmap small(smallName);
        for (int y = 0; y < small.height(); ++y) {
            for (int x = 0; x < small.width(); ++x) {
                const int wideX = x < 300 ? x : x + 150;
                ASSERT_EQ(wide.at(wideX, y), small.at(x, y)) << smallName << ' ' << x << ' ' << y;
            }
        }
    }
}

}  // namespace
}  // namespace quorvel
