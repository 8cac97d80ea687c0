#include "core/CodePage.h"

#include <algorithm>
#include <cstddef>

#include "core/Digits.h"
#include "core/Utf8.h"

namespace quorvel {

namespace {

constexpr unsigned utf8Page = 65001;
constexpr char substitute = '?';
constexpr char32_t asciiEnd = 0x80;

/// The page's bytes 0x80 to 0x9F; all others are their own Unicode characters.
constexpr std::array<char16_t, 32> windows1252Middle{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

unsigned char byteOf(char character) {
    return static_cast<unsigned char>(character);
}

CodePage::UnicodeTable windows1252Unicode() {
    CodePage::UnicodeTable table{};
    for (std::size_t byte = 0; byte < table.size(); ++byte)
        table[byte] = static_cast<char16_t>(byte);
    std::ranges::copy(windows1252Middle, table.begin() + 0x80);
    return table;
}

CodePage::UpperCaseTable windows1252UpperCase() {
    CodePage::UpperCaseTable table{};
    for (std::size_t byte = 0; byte < table.size(); ++byte) {
        const bool isLetterWithUpperCase =
            (byte >= 'a' && byte <= 'z') || (byte >= 0xE0 && byte <= 0xFE && byte != 0xF7);
        table[byte] = static_cast<char>(isLetterWithUpperCase ? byte - 0x20 : byte);
    }
    table[0x9A] = '\x8A';
    table[0x9C] = '\x8C';
    table[0x9E] = '\x8E';
    table[0xFF] = '\x9F';
    return table;
}

char plainDigit(int value) {
    return static_cast<char>('0' + value);
}

bool startsPair(char16_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}
bool endsPair(char16_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

}  // namespace

unsigned pageForTexts(const SystemPages& system) {
    const unsigned page = system.active == utf8Page ? system.ofLanguage : system.active;
    return page != 0 && system.isSingleByte(page) ? page : westernPage;
}

CodePage::CodePage(const UnicodeTable& toUnicode, const UpperCaseTable& toUpperCase)
    : toUnicode_(toUnicode), toUpperCase_(toUpperCase) {}

const CodePage& CodePage::windows1252() {
    static const CodePage page(windows1252Unicode(), windows1252UpperCase());
    return page;
}

std::string CodePage::upperCase(std::string_view text) const {
    std::string result(text);
    for (char& character : result) character = toUpperCase_[byteOf(character)];
    return result;
}

std::string CodePage::withPlainDigits(std::string_view text) const {
    std::string result(text);
    for (char& character : result)
        if (const auto value = digitValue(toUnicode_[byteOf(character)]))
            character = plainDigit(*value);
    return result;
}

int CodePage::compareIgnoringCase(std::string_view left, std::string_view right) const {
    // std::string orders its characters as unsigned bytes.
    return upperCase(left).compare(upperCase(right));
}

std::u16string CodePage::toUtf16(std::string_view text) const {
    std::u16string result;
    result.reserve(text.size());
    for (const char character : text) result += toUnicode_[byteOf(character)];
    return result;
}

std::string CodePage::toUtf8(std::string_view text) const {
    std::string result;
    result.reserve(text.size());
    for (const char character : text) appendUtf8(result, toUnicode_[byteOf(character)]);
    return result;
}

std::string CodePage::fromUtf16(std::u16string_view text) const {
    std::string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t character = text[i];
        if (startsPair(text[i]) && i + 1 < text.size() && endsPair(text[i + 1]))
            character = supplementaryStart + ((character - 0xD800) << 10) + (text[++i] - 0xDC00);
        result += fromUnicodeOrSubstitute(character);
    }
    return result;
}

std::string CodePage::fromUtf8(std::string_view text) const {
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        const std::optional<char32_t> character = takeUtf8(text);
        result += character ? fromUnicodeOrSubstitute(*character) : substitute;
    }
    return result;
}

char CodePage::fromUnicodeOrSubstitute(char32_t character) const {
    if (const auto byte = fromUnicode(character)) return *byte;
    const auto value = digitValue(character);
    return value ? plainDigit(*value) : substitute;
}

std::optional<char> CodePage::fromUnicode(char32_t character) const {
    if (character < asciiEnd) return static_cast<char>(character);
    const auto found = std::ranges::find(toUnicode_, character);
    if (found == toUnicode_.end()) return std::nullopt;
    return static_cast<char>(found - toUnicode_.begin());
}

}  // namespace quorvel
