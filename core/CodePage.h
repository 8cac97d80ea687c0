#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace quorvel {

/// The code pages of a system, by their numbers.
struct SystemPages {
    unsigned active = 0;
    unsigned ofLanguage = 0;  // of the system's language, whatever is active
    std::function<bool(unsigned page)> isSingleByte;
};

inline constexpr unsigned westernPage = 1252;

/// The page for texts: the active one, that of the language where the active one is UTF-8, and the
/// Western one where that has characters of more than one byte.
unsigned pageForTexts(const SystemPages& system);

/// The single-byte code page that every text in memory and on disk is written in.
/// Byte 0x00 to 0x7F is ASCII in every code page.
class CodePage {
  public:
    using UnicodeTable = std::array<char16_t, 256>;
    using UpperCaseTable = std::array<char, 256>;

    CodePage(const UnicodeTable& toUnicode, const UpperCaseTable& toUpperCase);

    /// The Western code page, used wherever the system has none of its own.
    static const CodePage& windows1252();

    std::string upperCase(std::string_view text) const;
    /// The digits of another script that the page holds, as those that numbers are read from.
    std::string withPlainDigits(std::string_view text) const;

    /// Negative, zero or positive as `left` stands before, beside or behind `right`
    /// when the letters' case is disregarded.
    int compareIgnoringCase(std::string_view left, std::string_view right) const;

    std::u16string toUtf16(std::string_view text) const;
    std::string toUtf8(std::string_view text) const;

    /// A digit of another script that the page lacks becomes its plain digit, any other character
    /// "?".
    std::string fromUtf16(std::u16string_view text) const;
    std::string fromUtf8(std::string_view text) const;

    /// The byte for one Unicode character; nothing where the page lacks it.
    std::optional<char> fromUnicode(char32_t character) const;

  private:
    char fromUnicodeOrSubstitute(char32_t character) const;

    UnicodeTable toUnicode_;
    UpperCaseTable toUpperCase_;
};

}  // namespace quorvel
