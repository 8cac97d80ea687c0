#pragma once

#include <filesystem>

namespace quorvel {

/// What the empty window understands beside the messages of every window: it prints its text.
inline constexpr unsigned printMessage = 0x8000;  // WM_APP

/// A window that does as little as one can, until it is closed: a key copies a picture of the
/// grid's size onto it, and printMessage prints the text of a file as it is. The file is UTF-8, a
/// line that begins with a form feed begins a page; without a file there is no text.
void runEmptyWindow(const std::filesystem::path& text);

}  // namespace quorvel
