#include "core/Utf8.h"

#include <array>
#include <cstddef>

namespace quorvel {

namespace {

constexpr char32_t asciiEnd = 0x80;
constexpr char32_t twoByteEnd = 0x800;
constexpr char32_t unicodeEnd = 0x110000;

char32_t byteOf(char character) {
    return static_cast<unsigned char>(character);
}

}  // namespace

void appendUtf8(std::string& text, char32_t character) {
    const auto append = [&text](char32_t byte) { text += static_cast<char>(byte); };
    const auto appendFollowing = [&](int shift) { append(0x80 | ((character >> shift) & 0x3F)); };
    if (character < asciiEnd) {
        append(character);
    } else if (character < twoByteEnd) {
        append(0xC0 | (character >> 6));
        appendFollowing(0);
    } else if (character < supplementaryStart) {
        append(0xE0 | (character >> 12));
        appendFollowing(6);
        appendFollowing(0);
    } else {
        append(0xF0 | (character >> 18));
        appendFollowing(12);
        appendFollowing(6);
        appendFollowing(0);
    }
}

std::optional<char32_t> takeUtf8(std::string_view& text) {
    const char32_t first = byteOf(text.front());
    text.remove_prefix(1);
    if (first < asciiEnd) return first;
    if (first < 0xC2 || first > 0xF4) return std::nullopt;
    const std::size_t following = first < 0xE0 ? 1 : first < 0xF0 ? 2 : 3;
    if (text.size() < following) return std::nullopt;
    char32_t character = first & (0x3Fu >> following);
    for (std::size_t i = 0; i < following; ++i) {
        const char32_t byte = byteOf(text[i]);
        if ((byte & 0xC0) != 0x80) return std::nullopt;
        character = (character << 6) | (byte & 0x3F);
    }
    constexpr std::array<char32_t, 4> smallest{0, asciiEnd, twoByteEnd, supplementaryStart};
    const bool isSurrogate = character >= 0xD800 && character < 0xE000;
    if (character < smallest[following] || character >= unicodeEnd || isSurrogate)
        return std::nullopt;
    text.remove_prefix(following);
    return character;
}

}  // namespace quorvel
