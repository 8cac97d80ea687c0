#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "core/CodePage.h"

namespace quorvel {

/// The path as the menus and the recent-file list show it: in the code page, folders separated by
/// a backslash on every system.
std::string pathText(const std::filesystem::path& path, const CodePage& codePage);

/// What stands behind the last backslash of a path's text, or all of it.
std::string fileNameText(std::string_view pathText);

}  // namespace quorvel
