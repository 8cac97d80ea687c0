#pragma once

#include <filesystem>
#include <string>

#include "core/CodePage.h"
#include "core/ports/Files.h"

namespace quorvel {

/// What keeps the program from working where it stands, and what to do about it, as the text of a
/// message box: it was started from inside an archive, or bitmaps are missing. Empty when nothing
/// does. `programFolder` is absolute.
std::string startProblem(const std::filesystem::path& programFolder, Files& files,
                         const CodePage& codePage);

}  // namespace quorvel
