#include <string>
#include <string_view>
#include <vector>

#include "qrv/TextEncoding.h"

#include <gtest/gtest.h>

namespace quorvel {

namespace {

std::string decoded(const std::string& bytes) {
    return decodedText(std::as_bytes(std::span(bytes)), CodePage::windows1252());
}

/// The units as UTF-16 with their byte order mark.
std::string utf16(const std::vector<unsigned>& units, bool littleEndian) {
    std::string bytes = littleEndian ? "\xFF\xFE" : "\xFE\xFF";
    for (const unsigned unit : units) {
        const char high = static_cast<char>(unit >> 8);
        const char low = static_cast<char>(unit & 0xFF);
        bytes += littleEndian ? std::string{low, high} : std::string{high, low};
    }
    return bytes;
}

constexpr std::string_view replacement = "\xEF\xBF\xBD";

TEST(TextEncodingTest, PairsOfUtf16AreOneCharacterInEitherOrder) {
    const std::pair<std::vector<unsigned>, std::string> texts[] = {
        {{'A', 0xF1, 0x20AC}, "A\xC3\xB1\xE2\x82\xAC"},
        {{0xD7FF, 0xE000, 0xFB01}, "\xED\x9F\xBF\xEE\x80\x80\xEF\xAC\x81"},
        {{0xD83D, 0xDE00, '!'}, "\xF0\x9F\x98\x80!"},
        {{0xD800, 0xDC00}, "\xF0\x90\x80\x80"},
        {{0xDBFF, 0xDFFF}, "\xF4\x8F\xBF\xBF"}};
    for (const auto& [units, text] : texts) {
        EXPECT_EQ(decoded(utf16(units, true)), text);
        EXPECT_EQ(decoded(utf16(units, false)), text);
    }
}

TEST(TextEncodingTest, HalfAPairIsReplacedAndWhatFollowsStays) {
    const std::pair<std::vector<unsigned>, std::string> texts[] = {
        {{0xD83D, 'a'}, std::string(replacement) + "a"},
        {{0xD83D, 0xFB01}, std::string(replacement) + "\xEF\xAC\x81"},
        {{0xD83D, 0xD83D, 0xDE00}, std::string(replacement) + "\xF0\x9F\x98\x80"},
        {{'a', 0xD83D}, "a" + std::string(replacement)},
        {{0xDE00, 'a'}, std::string(replacement) + "a"},
        {{0xDE00, 0xDE00}, std::string(replacement).append(replacement)}};
    for (const auto& [units, text] : texts) {
        EXPECT_EQ(decoded(utf16(units, true)), text);
        EXPECT_EQ(decoded(utf16(units, false)), text);
    }
    EXPECT_EQ(decoded(utf16({'a', 0xD83D}, true) + "x"),
              "a" + std::string(replacement).append(replacement))
        << "a pair that breaks off within its second half";
}

TEST(TextEncodingTest, BytesWithoutAMarkAreUtf8OrTheCodePage) {
    EXPECT_EQ(decoded(""), "");
    EXPECT_EQ(decoded("\xEF\xBB\xBF\xC3\xB1"), "\xC3\xB1");
    EXPECT_EQ(decoded("\xC3\xB1"), "\xC3\xB1");
    EXPECT_EQ(decoded("\xF1"), "\xC3\xB1");
    EXPECT_EQ(decoded("\xEF\xBB\xBF\xF1"), "\xC3\xB1");
}

}  // namespace

}  // namespace quorvel
