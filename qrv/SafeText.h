#pragma once

#include <filesystem>
#include <string_view>

#include "core/ports/Files.h"

namespace quorvel {

/// Puts `text` into the place of `file` in one step: at any moment it holds either all of its old
/// content or all of the new one. False when it failed; the file is then as it was.
bool writeTextSafely(Files& files, const std::filesystem::path& file, std::string_view text);

}  // namespace quorvel
