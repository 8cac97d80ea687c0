#include <filesystem>
#include <fstream>
#include <string>

#include <gtest/gtest.h>

#include "assets/tool/CanvasDrawing.h"
#include "assets/tool/TextBlocks.h"

namespace quorvel::art {
namespace {

/// A text picture or description in a file of its own, gone with the test.
class ArtFile {
  public:
    explicit ArtFile(const std::string& text)
        : path_(std::filesystem::path(testing::TempDir()) /
                (std::string(testing::UnitTest::GetInstance()->current_test_info()->name()) +
                 ".txt")) {
        std::ofstream(path_) << text;
    }
    ~ArtFile() { std::filesystem::remove(path_); }
    ArtFile(const ArtFile&) = delete;
    ArtFile& operator=(const ArtFile&) = delete;

    const std::filesystem::path& path() const { return path_; }

  private:
    std::filesystem::path path_;
};

const Palette palette{{"red", {255, 0, 0}}, {"blue", {0, 0, 255}}};

std::vector<Canvas> draw(const ArtFile& file, const Letters& letters = {}) {
    return drawCanvases(file.path(), palette, letters);
}

std::string refusal(const ArtFile& file) {
    try {
        draw(file);
    } catch (const ArtError& error) {
        const std::string text = error.what();
        return text.substr(text.find(".txt") + 4);
    }
    return "nothing refused";
}

TEST(ArtDescription, APlaceIsASumWithTheMeasuresOfTheCanvas) {
    const ArtFile file(
        "canvas a.bmp size 20 4 columns 10 drawing one\n\n"
        "canvas b.bmp size 170 4 columns 15 drawing one\n\n"
        "drawing one\n"
        "fill blue 0..end 0..4\n"
        "fill red 3+shift..end-15 1..2\n");
    const std::vector<Canvas> canvases = draw(file);
    ASSERT_EQ(canvases.size(), 2U);
    EXPECT_EQ(canvases[0].fileName, "a.bmp");
    EXPECT_EQ(canvases[0].picture.at(2, 1), palette.at("blue"));
    EXPECT_EQ(canvases[0].picture.at(3, 1), palette.at("red"));
    EXPECT_EQ(canvases[0].picture.at(4, 1), palette.at("red"));
    EXPECT_EQ(canvases[0].picture.at(5, 1), palette.at("blue"));
    EXPECT_EQ(canvases[1].picture.at(152, 1), palette.at("blue"));
    EXPECT_EQ(canvases[1].picture.at(153, 1), palette.at("red"));
    EXPECT_EQ(canvases[1].picture.at(155, 1), palette.at("blue"));
    EXPECT_EQ(canvases[1].picture.at(153, 0), palette.at("blue"));
    EXPECT_EQ(canvases[1].picture.at(153, 2), palette.at("blue"));
}

TEST(ArtDescription, AFillIsRepeatedToTheRightOrDownAndCutAtTheEdge) {
    const ArtFile file(
        "canvas a.bmp size 10 10 columns 3 drawing one\n\n"
        "drawing one\n"
        "fill blue 0..end 0..10\n"
        "# a remark\n"
        "fill red 0..1 0..1 repeat columns right 4\n"
        "fill red 9..12 1..2 repeat 9 down 2\n");
    const Picture picture = draw(file).front().picture;
    for (int x = 0; x < 10; ++x) {
        EXPECT_EQ(picture.at(x, 0), palette.at(x % 4 == 0 ? "red" : "blue")) << x;
    }
    for (int y = 0; y < 10; ++y) {
        EXPECT_EQ(picture.at(9, y), palette.at(y % 2 == 1 ? "red" : "blue")) << y;
    }
}

TEST(ArtDescription, ATextStandsInTheMiddleOfItsPlace) {
    const ArtFile font("letter i\n#\n\nletter v\n#.#\n");
    const Letters letters = readLetters(font.path());
    std::filesystem::path second = font.path();
    second += "-canvas";
    std::ofstream(second) << "canvas a.bmp size 9 1 columns 10 drawing one\n\n"
                             "drawing one\n"
                             "fill blue 0..end 0..1\n"
                             "text red 0..9 0 iv\n";
    const Picture picture = drawCanvases(second, palette, letters).front().picture;
    std::filesystem::remove(second);
    std::string row;
    for (int x = 0; x < 9; ++x) {
        row += picture.at(x, 0) == palette.at("red") ? '#' : '.';
    }
    EXPECT_EQ(row, "..#.#.#..");
}

TEST(ArtDescription, WhatCannotBeReadIsRefusedWithItsLine) {
    const std::string head = "canvas a.bmp size 9 9 columns 10 drawing one\n\ndrawing one\n";
    EXPECT_EQ(refusal(ArtFile(head + "fill green 0..1 0..1\n")), ":4: no such colour: green");
    EXPECT_EQ(refusal(ArtFile(head + "fill red 0-1 0..1\n")), ":4: not FROM..TO: 0-1");
    EXPECT_EQ(refusal(ArtFile(head + "fill red x..1 0..1\n")), ":4: not a number: x");
    EXPECT_EQ(refusal(ArtFile(head + "circle red 0..1 0..1\n")), ":4: neither fill nor text");
    EXPECT_EQ(refusal(ArtFile(head + "text red 0..9 0 A\n")), ":4: no picture of the letter A");
    EXPECT_EQ(refusal(ArtFile("canvas a.bmp size 9 9 columns 10 drawing two\n")),
              ":1: no such drawing: two");
}

TEST(ArtDescription, ATextTooWideForItsPlaceIsRefused) {
    const ArtFile file(
        "canvas a.bmp size 9 9 columns 10 drawing one\n\n"
        "drawing one\n"
        "text red 0..2 0 w\n");
    const Letters letters{{'w', {{"", 0, "letter w"}, {{"", 1, "###"}}}}};
    EXPECT_THROW(draw(file, letters), ArtError);
}

TEST(ArtDescription, APictureWhoseLinesDifferInLengthIsRefused) {
    const ArtFile file("shape x\n###\n##\n");
    EXPECT_THROW(readBlocks(file.path()).front().width(), ArtError);
}

TEST(ArtDescription, RemarksStandBetweenBlocksAndPicturesMayBeginWithInk) {
    const ArtFile file("# remark\n\nshape x\n#.\n.#\n\n# remark\n\nshape y\n..\n");
    const std::vector<Block> blocks = readBlocks(file.path());
    ASSERT_EQ(blocks.size(), 2U);
    EXPECT_EQ(blocks[0].height(), 2);
    EXPECT_EQ(blocks[0].width(), 2);
    EXPECT_EQ(blocks[1].heading.text, "shape y");
}

}  // namespace
}  // namespace quorvel::art
