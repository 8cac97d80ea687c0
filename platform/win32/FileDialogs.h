#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include <windows.h>

namespace quorvel {

// Windows' own dialogs for sheets. They begin in the folder and change no working folder; nothing
// comes back where they are cancelled.

/// A file that exists.
std::optional<std::filesystem::path> chooseFileToOpen(HWND owner, const std::wstring& title,
                                                      const std::filesystem::path& startFolder);
/// A place that can be written to. A name without an ending gets the one of sheets.
std::optional<std::filesystem::path> chooseFileToSave(HWND owner, const std::wstring& title,
                                                      const std::filesystem::path& startFolder);

}  // namespace quorvel
