#pragma once

#include <filesystem>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "assets/tool/Picture.h"

namespace quorvel::art {

/// Something in an art file that cannot be read; its text begins with file and line.
class ArtError : public std::runtime_error {
  public:
    ArtError(const std::string& file, int line, std::string_view problem);
};

/// A line of an art file with the place it came from.
struct Line {
    std::string file;
    int number = 0;  // from 1
    std::string text;

    std::vector<std::string> words() const;
    [[noreturn]] void refuse(std::string_view problem) const;
};

/// A heading line and the lines under it, up to the next empty line.
struct Block {
    Line heading;
    std::vector<Line> lines;

    /// The height and width of the text picture that the lines are. Throws ArtError where the lines
    /// are of different lengths.
    int height() const { return static_cast<int>(lines.size()); }
    int width() const;
};

/// The blocks of a file. Between blocks, lines that start with "#" are remarks.
std::vector<Block> readBlocks(const std::filesystem::path& file);

/// Reads a number that must make up the whole of `text`.
int wholeNumber(const Line& line, std::string_view text);

/// Reads "RRGGBB", or "-" for see-through.
Pixel pixelFromText(const Line& line, std::string_view text);

/// The colours that the pictures share, by name.
using Palette = std::map<std::string, Pixel>;

/// Reads the first block of a file: a heading and then lines of NAME and RRGGBB, or "-" for
/// see-through; what follows on a line is a remark.
Palette readPalette(const std::filesystem::path& file);
Pixel colourNamed(const Palette& palette, const Line& line, const std::string& name);

}  // namespace quorvel::art
