#pragma once

#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "assets/tool/Picture.h"

namespace quorvel::art {

/// The bytes of a .bmp file of 24 bits a pixel.
std::string bitmapFile(const Picture& picture);

/// The bytes of an .ico file of 32 bits a pixel that holds the pictures; each is square and at most
/// 255 pixels wide.
std::string iconFile(std::span<const Picture> pictures);

/// Throws std::runtime_error where the file cannot be written whole.
void writeFile(const std::filesystem::path& file, std::string_view bytes);

}  // namespace quorvel::art
