#include "assets/tool/IconDrawing.h"

#include "assets/tool/Shapes.h"

namespace quorvel::art {
namespace {

using Words = std::vector<std::string>;

Picture pictureSetByPixels(const Block& block, const Palette& colours) {
    if (block.width() != block.height()) {
        block.heading.refuse("a picture of the icon is square");
    }
    Picture picture(block.width(), block.height());
    for (int y = 0; y < block.height(); ++y) {
        const Line& line = block.lines[static_cast<std::size_t>(y)];
        for (int x = 0; x < block.width(); ++x) {
            const std::string character(1, line.text[static_cast<std::size_t>(x)]);
            picture.set(x, y, colourNamed(colours, line, character));
        }
    }
    return picture;
}

double place(const Line& line, const std::string& word) {
    return wholeNumber(line, word);
}

using Outlines = std::vector<std::vector<Point>>;

Outlines rectangle(const Line& line, const Words& words) {
    const double left = place(line, words[3]);
    const double top = place(line, words[4]);
    const double right = place(line, words[5]);
    const double bottom = place(line, words[6]);
    return {{{left, top}, {right, top}, {right, bottom}, {left, bottom}}};
}

/// Corners from the fourth word on; a "/" begins another closed line.
Outlines closedLines(const Line& line, const Words& words) {
    Outlines outlines(1);
    for (std::size_t i = 3; i < words.size(); i += 2) {
        if (words[i] == "/") {
            outlines.emplace_back();
            ++i;
        }
        if (i + 1 >= words.size()) {
            line.refuse("a corner is two numbers");
        }
        outlines.back().push_back({place(line, words[i]), place(line, words[i + 1])});
    }
    return outlines;
}

Shape shapeFrom(const Line& line, const Palette& colours) {
    const Words words = line.words();
    const bool isRectangle = words.size() == 7 && words[0] == "rectangle";
    if (!isRectangle && (words.size() < 9 || words[0] != "lines")) {
        line.refuse("neither rectangle nor lines");
    }
    Shape shape;
    shape.colour = colourNamed(colours, line, words[1]);
    shape.margin = place(line, words[2]);
    shape.outlines = isRectangle ? rectangle(line, words) : closedLines(line, words);
    return shape;
}

/// drawing FIELD SIZE...
void addDrawings(const Block& block, const Palette& colours, std::vector<Picture>& pictures) {
    std::vector<Shape> shapes;
    for (const Line& line : block.lines) {
        shapes.push_back(shapeFrom(line, colours));
    }
    const Words words = block.heading.words();
    const double field = place(block.heading, words[1]);
    for (std::size_t i = 2; i < words.size(); ++i) {
        pictures.push_back(drawShapes(shapes, field, wholeNumber(block.heading, words[i])));
    }
}

}  // namespace

std::vector<Picture> iconPictures(const std::filesystem::path& file) {
    const std::vector<Block> blocks = readBlocks(file);
    const Palette colours = readPalette(file);
    std::vector<Picture> pictures;
    for (std::size_t i = 1; i < blocks.size(); ++i) {
        const Words words = blocks[i].heading.words();
        if (words.size() == 2 && words[0] == "picture") {
            pictures.push_back(pictureSetByPixels(blocks[i], colours));
        } else if (words.size() > 2 && words[0] == "drawing") {
            addDrawings(blocks[i], colours, pictures);
        } else {
            blocks[i].heading.refuse("an icon is made of: picture SIZE, drawing FIELD SIZE...");
        }
    }
    return pictures;
}

}  // namespace quorvel::art
