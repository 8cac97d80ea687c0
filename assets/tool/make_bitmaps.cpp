// Turns the text pictures of a folder into the bitmaps and the icon of the program:
// make_bitmaps ART_FOLDER BITMAP_FOLDER ICON_FILE

#include <exception>
#include <filesystem>
#include <iostream>
#include <vector>

#include "assets/tool/CanvasDrawing.h"
#include "assets/tool/IconDrawing.h"
#include "assets/tool/PictureFiles.h"
#include "assets/tool/TextBlocks.h"

namespace quorvel::art {
namespace {

constexpr int glyphWidth = 8;
constexpr int glyphHeight = 12;

Pixel halfway(Pixel one, Pixel other) {
    const auto between = [](std::uint8_t left, std::uint8_t right) {
        return static_cast<std::uint8_t>((left + right) / 2);
    };
    return {between(one.red, other.red), between(one.green, other.green),
            between(one.blue, other.blue)};
}

Picture glyphPicture(const Block& shape, Pixel ink, Pixel background) {
    if (shape.width() != glyphWidth || shape.height() != glyphHeight) {
        shape.heading.refuse("a glyph is 8 pixels wide and 12 high");
    }
    Picture picture(glyphWidth, glyphHeight, background);
    for (int y = 0; y < glyphHeight; ++y) {
        for (int x = 0; x < glyphWidth; ++x) {
            const Line& line = shape.lines[static_cast<std::size_t>(y)];
            switch (line.text[static_cast<std::size_t>(x)]) {
                case '#':
                    picture.set(x, y, ink);
                    break;
                case '+':
                    picture.set(x, y, halfway(ink, background));
                    break;
                case '.':
                    break;
                default:
                    line.refuse("a glyph is drawn with #, + and .");
            }
        }
    }
    return picture;
}

/// A block headed "shape NAME plain FILE double FILE" gives a file for each of the sets named.
void writeGlyphs(const std::filesystem::path& art, const Palette& palette,
                 const std::filesystem::path& bitmaps) {
    for (const Block& shape : readBlocks(art / "glyphs.txt")) {
        const Line& heading = shape.heading;
        const std::vector<std::string> words = heading.words();
        if (words.size() < 4 || words.size() % 2 != 0 || words[0] != "shape") {
            heading.refuse("a glyph is headed: shape NAME plain FILE double FILE");
        }
        const Pixel ink = colourNamed(palette, heading, "ink");
        for (std::size_t i = 2; i < words.size(); i += 2) {
            const Pixel background = colourNamed(palette, heading, words[i]);
            writeFile(bitmaps / words[i + 1], bitmapFile(glyphPicture(shape, ink, background)));
        }
    }
}

void writeCanvases(const std::filesystem::path& art, const Palette& palette,
                   const std::filesystem::path& bitmaps) {
    const Letters letters = readLetters(art / "letters.txt");
    for (const Canvas& canvas : drawCanvases(art / "canvas.txt", palette, letters)) {
        writeFile(bitmaps / canvas.fileName, bitmapFile(canvas.picture));
    }
}

void makeBitmaps(const std::filesystem::path& art, const std::filesystem::path& bitmaps,
                 const std::filesystem::path& icon) {
    const Palette palette = readPalette(art / "colours.txt");
    writeGlyphs(art, palette, bitmaps);
    writeCanvases(art, palette, bitmaps);
    writeFile(icon, iconFile(iconPictures(art / "icon.txt")));
}

}  // namespace
}  // namespace quorvel::art

int main(int argumentCount, char** arguments) {
    if (argumentCount != 4) {
        std::cerr << "usage: make_bitmaps ART_FOLDER BITMAP_FOLDER ICON_FILE\n";
        return 2;
    }
    try {
        quorvel::art::makeBitmaps(arguments[1], arguments[2], arguments[3]);
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
    return 0;
}
