#pragma once

#include <span>
#include <string>

#include "core/CodePage.h"

namespace quorvel {

/// What a spreadsheet wrote, as UTF-8 without a byte order mark. It may be UTF-8 with or without
/// one, UTF-16 with one, or, where it is none of these, text in the code page. Half a character is
/// U+FFFD.
std::string decodedText(std::span<const std::byte> bytes, const CodePage& codePage);

}  // namespace quorvel
