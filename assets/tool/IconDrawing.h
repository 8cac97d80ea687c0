#pragma once

#include <string>
#include <vector>

#include "assets/tool/TextBlocks.h"

namespace quorvel::art {

/// The icon's pictures, the smallest first: those that are set pixel by pixel, then those that are
/// drawn. icon.txt says in its remarks how both are written. Throws ArtError.
std::vector<Picture> iconPictures(const std::filesystem::path& file);

}  // namespace quorvel::art
