#include "assets/tool/CanvasDrawing.h"

#include <algorithm>
#include <string_view>

namespace quorvel::art {
namespace {

constexpr int columnPitch = 30;       // pixels from one score column to the next
constexpr int narrowestColumns = 10;  // score columns where nothing is shifted
constexpr int letterSpace = 1;        // pixels between two letters
constexpr int wordSpace = 3;

/// What the expressions of a description stand for on one canvas.
struct Measures {
    int columns = 0;
    int end = 0;  // the canvas' width

    int of(const Line& line, std::string_view word) const {
        if (word == "columns") {
            return columns;
        }
        if (word == "shift") {
            return columnPitch * (columns - narrowestColumns);
        }
        if (word == "end") {
            return end;
        }
        return wholeNumber(line, word);
    }

    /// A sum such as "306+shift" or "end-8".
    int sum(const Line& line, std::string_view text) const {
        int total = 0;
        int sign = 1;
        while (true) {
            const std::size_t stop = text.find_first_of("+-");
            total += sign * of(line, text.substr(0, stop));
            if (stop == std::string_view::npos) {
                return total;
            }
            sign = text[stop] == '+' ? 1 : -1;
            text.remove_prefix(stop + 1);
        }
    }
};

struct Span {
    int from = 0;
    int to = 0;
};

Span spanOf(const Line& line, const Measures& measures, std::string_view text) {
    const std::size_t dots = text.find("..");
    if (dots == std::string_view::npos) {
        line.refuse("not FROM..TO: " + std::string(text));
    }
    return {measures.sum(line, text.substr(0, dots)), measures.sum(line, text.substr(dots + 2))};
}

class Drawer {
  public:
    Drawer(const Palette& palette, const Letters& letters, const Measures& measures,
           Picture& picture)
        : palette_(palette), letters_(letters), measures_(measures), picture_(picture) {}

    void draw(const Line& line) {
        const std::vector<std::string> words = line.words();
        if (words[0] == "#") {
            return;
        }
        if (words.size() >= 4 && words[0] == "fill") {
            fill(line, words);
        } else if (words.size() == 5 && words[0] == "text") {
            text(line, words);
        } else {
            line.refuse("neither fill nor text");
        }
    }

  private:
    /// fill COLOUR X..X Y..Y [repeat COUNT right|down STEP]
    void fill(const Line& line, const std::vector<std::string>& words) {
        const Pixel colour = colourNamed(palette_, line, words[1]);
        const Span across = spanOf(line, measures_, words[2]);
        const Span down = spanOf(line, measures_, words[3]);
        int count = 1;
        int stepRight = 0;
        int stepDown = 0;
        if (words.size() == 8 && words[4] == "repeat") {
            count = measures_.sum(line, words[5]);
            (words[6] == "right" ? stepRight : stepDown) = measures_.sum(line, words[7]);
        } else if (words.size() != 4) {
            line.refuse("fill COLOUR X..X Y..Y, then perhaps repeat COUNT right|down STEP");
        }
        for (int i = 0; i < count; ++i) {
            picture_.fill(across.from + i * stepRight, down.from + i * stepDown,
                          across.to + i * stepRight, down.to + i * stepDown, colour);
        }
    }

    /// text COLOUR X..X Y WORDS, centred between the two X; "_" is a blank
    void text(const Line& line, const std::vector<std::string>& words) {
        const Pixel colour = colourNamed(palette_, line, words[1]);
        const Span across = spanOf(line, measures_, words[2]);
        const int top = measures_.sum(line, words[3]);
        const int width = textWidth(line, words[4]);
        int x = across.from + (across.to - across.from - width) / 2;
        if (width > across.to - across.from) {
            line.refuse("the text is " + std::to_string(width) + " pixels wide: too wide");
        }
        for (const char character : words[4]) {
            if (character == '_') {
                x += wordSpace;
                continue;
            }
            const Block& letter = letterFor(line, character);
            for (int row = 0; row < letter.height(); ++row) {
                const std::string& pixels = letter.lines[static_cast<std::size_t>(row)].text;
                for (int column = 0; column < letter.width(); ++column) {
                    if (pixels[static_cast<std::size_t>(column)] == '#') {
                        picture_.set(x + column, top + row, colour);
                    }
                }
            }
            x += letter.width() + letterSpace;
        }
    }

    int textWidth(const Line& line, std::string_view text) const {
        int width = -letterSpace;
        for (const char character : text) {
            width +=
                character == '_' ? wordSpace : letterFor(line, character).width() + letterSpace;
        }
        return width;
    }

    const Block& letterFor(const Line& line, char character) const {
        const auto found = letters_.find(character);
        if (found == letters_.end()) {
            line.refuse(std::string("no picture of the letter ") + character);
        }
        return found->second;
    }

    const Palette& palette_;
    const Letters& letters_;
    const Measures& measures_;
    Picture& picture_;
};

const Block& drawingNamed(const std::vector<Block>& blocks, const Line& line,
                          const std::string& name) {
    const auto found = std::find_if(blocks.begin(), blocks.end(), [&](const Block& block) {
        return block.heading.words() == std::vector<std::string>{"drawing", name};
    });
    if (found == blocks.end()) {
        line.refuse("no such drawing: " + name);
    }
    return *found;
}

}  // namespace

Letters readLetters(const std::filesystem::path& file) {
    Letters letters;
    for (const Block& block : readBlocks(file)) {
        const std::vector<std::string> words = block.heading.words();
        if (words.size() != 2 || words[0] != "letter" || words[1].size() != 1) {
            block.heading.refuse("a picture of a letter is headed: letter X");
        }
        letters[words[1][0]] = block;
    }
    return letters;
}

std::vector<Canvas> drawCanvases(const std::filesystem::path& file, const Palette& palette,
                                 const Letters& letters) {
    const std::vector<Block> blocks = readBlocks(file);
    std::vector<Canvas> canvases;
    for (const Block& block : blocks) {
        const Line& heading = block.heading;
        const std::vector<std::string> words = heading.words();
        if (words[0] == "drawing") {
            continue;
        }
        if (words.size() != 9 || words[0] != "canvas" || words[2] != "size" ||
            words[5] != "columns" || words[7] != "drawing") {
            heading.refuse("a canvas is: canvas FILE size WIDTH HEIGHT columns COUNT drawing NAME");
        }
        const Measures measures{wholeNumber(heading, words[6]), wholeNumber(heading, words[3])};
        Picture picture(measures.end, wholeNumber(heading, words[4]));
        Drawer drawer(palette, letters, measures, picture);
        for (const Line& line : drawingNamed(blocks, heading, words[8]).lines) {
            drawer.draw(line);
        }
        canvases.push_back({words[1], picture});
    }
    return canvases;
}

}  // namespace quorvel::art
