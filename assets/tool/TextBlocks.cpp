#include "assets/tool/TextBlocks.h"

#include <charconv>
#include <fstream>
#include <sstream>

namespace quorvel::art {

ArtError::ArtError(const std::string& file, int line, std::string_view problem)
    : std::runtime_error(file + ":" + std::to_string(line) + ": " + std::string(problem)) {}

std::vector<std::string> Line::words() const {
    std::istringstream stream(text);
    std::vector<std::string> words;
    for (std::string word; stream >> word;) {
        words.push_back(word);
    }
    return words;
}

void Line::refuse(std::string_view problem) const {
    throw ArtError(file, number, problem);
}

int Block::width() const {
    const std::size_t width = lines.empty() ? 0 : lines.front().text.size();
    for (const Line& line : lines) {
        if (line.text.size() != width) {
            line.refuse("this line of the picture is not as long as the first one");
        }
    }
    return static_cast<int>(width);
}

std::vector<Block> readBlocks(const std::filesystem::path& file) {
    std::ifstream stream(file);
    if (!stream) {
        throw ArtError(file.string(), 0, "cannot be read");
    }
    std::vector<Block> blocks;
    bool inBlock = false;
    int number = 0;
    for (std::string text; std::getline(stream, text);) {
        const Line line{file.string(), ++number, text};
        if (text.empty()) {
            inBlock = false;
        } else if (inBlock) {
            blocks.back().lines.push_back(line);
        } else if (text.front() != '#') {
            blocks.push_back({line, {}});
            inBlock = true;
        }
    }
    return blocks;
}

int wholeNumber(const Line& line, std::string_view text) {
    int value = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc{} || stop != end) {
        line.refuse("not a number: " + std::string(text));
    }
    return value;
}

Pixel pixelFromText(const Line& line, std::string_view text) {
    if (text == "-") {
        return {0, 0, 0, 0};
    }
    unsigned value = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value, 16);
    if (error != std::errc{} || stop != end || text.size() != 6) {
        line.refuse("not a colour: " + std::string(text));
    }
    return {static_cast<std::uint8_t>(value >> 16), static_cast<std::uint8_t>(value >> 8 & 0xFFU),
            static_cast<std::uint8_t>(value & 0xFFU)};
}

Palette readPalette(const std::filesystem::path& file) {
    const std::vector<Block> blocks = readBlocks(file);
    Palette palette;
    if (blocks.empty()) {
        return palette;
    }
    for (const Line& line : blocks.front().lines) {
        const std::vector<std::string> words = line.words();
        if (words.size() < 2) {
            line.refuse("a colour is a name and RRGGBB");
        }
        palette[words[0]] = pixelFromText(line, words[1]);
    }
    return palette;
}

Pixel colourNamed(const Palette& palette, const Line& line, const std::string& name) {
    const auto found = palette.find(name);
    if (found == palette.end()) {
        line.refuse("no such colour: " + name);
    }
    return found->second;
}

}  // namespace quorvel::art
