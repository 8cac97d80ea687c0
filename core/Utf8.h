#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quorvel {

/// The first character that UTF-16 writes as a pair of units.
inline constexpr char32_t supplementaryStart = 0x10000;

/// Adds one Unicode character to a text in UTF-8.
void appendUtf8(std::string& text, char32_t character);

/// Reads one character off the front of `text`, which must not be empty; nothing, and one byte
/// less, where that is no UTF-8.
std::optional<char32_t> takeUtf8(std::string_view& text);

}  // namespace quorvel
