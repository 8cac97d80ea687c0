#include <array>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <png.h>

#include "FileBytes.h"
#include "assets/tool/IconDrawing.h"
#include "assets/tool/Shapes.h"

namespace quorvel::art {
namespace {

constexpr std::array sizes{16, 32, 48, 64, 128, 256};

/// One entry of the icon's table and what it points at.
struct Entry {
    int width = 0;
    int height = 0;
    int bitsPerPixel = 0;
    std::string bytes;
};

std::vector<Entry> entriesOfTheIcon() {
    const std::string icon = fileBytes("Quorvel.ico");
    EXPECT_EQ(byteAt(icon, 2), 1);
    std::vector<Entry> entries(static_cast<std::size_t>(byteAt(icon, 4)));
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const std::size_t entry = 6 + 16 * i;
        const auto size = static_cast<std::size_t>(numberAt(icon, entry + 8));
        const auto place = static_cast<std::size_t>(numberAt(icon, entry + 12));
        EXPECT_LE(place + size, icon.size());
        entries[i] = {byteAt(icon, entry), byteAt(icon, entry + 1), byteAt(icon, entry + 6),
                      icon.substr(place, size)};
    }
    return entries;
}

/// Colours with their opacity, four bytes a pixel.
std::vector<unsigned char> decoded(const std::string& png, int size) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    EXPECT_TRUE(png_image_begin_read_from_memory(&image, png.data(), png.size())) << image.message;
    EXPECT_EQ(image.width, static_cast<png_uint_32>(size));
    EXPECT_EQ(image.height, static_cast<png_uint_32>(size));
    image.format = PNG_FORMAT_RGBA;
    std::vector<unsigned char> pixels(PNG_IMAGE_SIZE(image));
    EXPECT_TRUE(png_image_finish_read(&image, nullptr, pixels.data(), 0, nullptr)) << image.message;
    return pixels;
}

TEST(Icon, HasEverySizeThatWindowsShows) {
    const std::vector<Entry> entries = entriesOfTheIcon();
    ASSERT_EQ(entries.size(), sizes.size());
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        EXPECT_EQ(entries[i].width, sizes[i] % 256);
        EXPECT_EQ(entries[i].height, sizes[i] % 256);
        EXPECT_EQ(entries[i].bitsPerPixel, 32);
    }
}

TEST(Icon, TheSmallSizesAreBitmapsWithAMask) {
    const std::vector<Entry> entries = entriesOfTheIcon();
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(numberAt(entries[i].bytes, 0), 40);
        EXPECT_EQ(numberAt(entries[i].bytes, 4), sizes[i]);
        EXPECT_EQ(numberAt(entries[i].bytes, 8), sizes[i] * 2);
    }
}

TEST(Icon, TheLargeSizesHaveSmoothEdgesAndSeeThroughCorners) {
    const std::vector<Entry> entries = entriesOfTheIcon();
    for (std::size_t i = 3; i < sizes.size(); ++i) {
        const std::vector<unsigned char> pixels = decoded(entries[i].bytes, sizes[i]);
        const auto alphaAt = [&](int x, int y) {
            return pixels[static_cast<std::size_t>((y * sizes[i] + x) * 4 + 3)];
        };
        EXPECT_EQ(alphaAt(0, 0), 0);
        EXPECT_EQ(alphaAt(sizes[i] - 1, 0), 0);
        EXPECT_EQ(alphaAt(sizes[i] / 2, sizes[i] / 2), 255);
        std::set<unsigned char> alphas;
        for (std::size_t alpha = 3; alpha < pixels.size(); alpha += 4) alphas.insert(pixels[alpha]);
        EXPECT_GT(alphas.size(), 4U);
    }
}

TEST(Shapes, APixelIsTheMeanOfWhatLiesUnderIt) {
    const Pixel red{255, 0, 0};
    const Shape leftHalfAndAQuarter{{{{0, 0}, {1.25, 0}, {1.25, 2}, {0, 2}}}, 0, red};
    const Picture picture = drawShapes({leftHalfAndAQuarter}, 2, 2);
    EXPECT_EQ(picture.at(0, 0), red);
    EXPECT_EQ(picture.at(1, 1), (Pixel{255, 0, 0, 64}));
    EXPECT_EQ(drawShapes({leftHalfAndAQuarter}, 2, 1).at(0, 0), (Pixel{255, 0, 0, 159}));
}

TEST(Shapes, LaterOnesLieOverEarlierOnes) {
    const Pixel red{255, 0, 0};
    const Pixel blue{0, 0, 255};
    const std::vector<std::vector<Point>> whole{{{0, 0}, {1, 0}, {1, 1}, {0, 1}}};
    const Picture picture = drawShapes({{whole, 0, red}, {whole, 0, blue}}, 1, 1);
    EXPECT_EQ(picture.at(0, 0), blue);
}

TEST(Shapes, ASecondOutlineInsideIsAHole) {
    const Shape frame{{{{0, 0}, {9, 0}, {9, 9}, {0, 9}}, {{3, 3}, {6, 3}, {6, 6}, {3, 6}}}, 0, {}};
    EXPECT_TRUE(frame.covers({1, 4.5}));
    EXPECT_FALSE(frame.covers({4.5, 4.5}));
    EXPECT_FALSE(frame.covers({9.5, 4.5}));
}

TEST(Shapes, AMarginIsRoundAboutTheCorners) {
    const Shape shape{{{{2, 2}, {4, 2}, {4, 4}, {2, 4}}}, 1, {}};
    EXPECT_TRUE(shape.covers({3, 1.1}));
    EXPECT_FALSE(shape.covers({3, 0.9}));
    EXPECT_TRUE(shape.covers({1.4, 1.4}));
    EXPECT_FALSE(shape.covers({1.2, 1.2}));
}

class IconDescription : public testing::Test {
  protected:
    ~IconDescription() override { std::filesystem::remove(file_); }

    std::vector<Picture> pictures(const std::string& description) {
        std::ofstream(file_) << "colours\n.  -\nr  FF0000\n\n" << description;
        return iconPictures(file_);
    }
    std::string refusal(const std::string& description) {
        try {
            pictures(description);
        } catch (const ArtError& error) {
            const std::string text = error.what();
            return text.substr(text.find(".txt") + 4);
        }
        return "nothing refused";
    }

  private:
    std::filesystem::path file_ = std::filesystem::path(testing::TempDir()) / "icon-test.txt";
};

TEST_F(IconDescription, PicturesAndDrawingsComeInTheirOrder) {
    const std::vector<Picture> found = pictures(
        "picture 2\n.r\nr.\n\ndrawing 4 8 4\nrectangle r 0 0 0 2 4\nlines r 0 2 0 4 0 4 4\n");
    ASSERT_EQ(found.size(), 3U);
    EXPECT_EQ(found[0].at(1, 0), (Pixel{255, 0, 0}));
    EXPECT_EQ(found[0].at(0, 0).alpha, 0);
    EXPECT_EQ(found[1].width(), 8);
    EXPECT_EQ(found[2].at(1, 3), (Pixel{255, 0, 0}));
    EXPECT_EQ(found[2].at(3, 0), (Pixel{255, 0, 0}));
    EXPECT_EQ(found[2].at(2, 3).alpha, 0);
}

TEST_F(IconDescription, ASlashBeginsAnotherOutline) {
    const std::vector<Picture> found =
        pictures("drawing 3 3\nlines r 0 0 0 3 0 3 3 0 3 / 1 1 2 1 2 2 1 2\n");
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].at(0, 1), (Pixel{255, 0, 0}));
    EXPECT_EQ(found[0].at(1, 1).alpha, 0);
}

TEST_F(IconDescription, WhatCannotBeReadIsRefusedWithItsLine) {
    EXPECT_EQ(refusal("picture 2\n.r\n"), ":5: a picture of the icon is square");
    EXPECT_EQ(refusal("circle 2\n.r\n"),
              ":5: an icon is made of: picture SIZE, drawing FIELD SIZE...");
    EXPECT_EQ(refusal("drawing 4 4\nrectangle r 0 0 0 2\n"), ":6: neither rectangle nor lines");
    EXPECT_EQ(refusal("drawing 4 4\nlines r 0 0 0 2 0 2 2 1\n"), ":6: a corner is two numbers");
    EXPECT_EQ(refusal("drawing 4 4\nlines r 0 0 0 2 0 2 y\n"), ":6: not a number: y");
}

}  // namespace
}  // namespace quorvel::art
