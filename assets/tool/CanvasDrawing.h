#pragma once

#include <map>
#include <string>
#include <vector>

#include "assets/tool/TextBlocks.h"

namespace quorvel::art {

/// The letters of the headings: text pictures of one height, each as wide as it needs.
using Letters = std::map<char, Block>;

/// Reads blocks headed "letter X".
Letters readLetters(const std::filesystem::path& file);

/// A finished canvas and the name of its file.
struct Canvas {
    std::string fileName;
    Picture picture;
};

/// Draws the canvases that a description file asks for; canvas.txt says in its remarks how one is
/// written.
std::vector<Canvas> drawCanvases(const std::filesystem::path& file, const Palette& palette,
                                 const Letters& letters);

}  // namespace quorvel::art
