#include "qrv/Composition.h"

#include <algorithm>
#include <array>
#include <optional>

#include "core/Utf8.h"

namespace quorvel {

namespace {

/// A combining mark, the letters that take it, and what each of them becomes.
struct Mark {
    char32_t mark;
    std::u32string_view letters;
    std::u32string_view composed;
};

/// Every pair whose composition is in one of Windows' single-byte code pages.
constexpr std::array<Mark, 17> marks{{
    {0x0300, U"AEIOUaeiou", U"ÀÈÌÒÙàèìòù"},
    {0x0301, U"ACEILNORSUYZaceilnorsuyz¨ΑΕΗΙΟΥΩαεηιουωϊϋГКгк",
     U"ÁĆÉÍĹŃÓŔŚÚÝŹáćéíĺńóŕśúýź΅ΆΈΉΊΌΎΏάέήίόύώΐΰЃЌѓќ"},
    {0x0302, U"AEIOUaeiou", U"ÂÊÎÔÛâêîôû"},
    {0x0303, U"ANOano", U"ÃÑÕãñõ"},
    {0x0304, U"AEIOUaeiou", U"ĀĒĪŌŪāēīōū"},
    {0x0306, U"AGagИУиу", U"ĂĞăğЙЎйў"},
    {0x0307, U"EIZez", U"ĖİŻėż"},
    {0x0308, U"AEIOUYaeiouyΙΥιυІЕеі", U"ÄËÏÖÜŸäëïöüÿΪΫϊϋЇЁёї"},
    {0x030A, U"AUau", U"ÅŮåů"},
    {0x030B, U"OUou", U"ŐŰőű"},
    {0x030C, U"CDELNRSTZcdelnrstz", U"ČĎĚĽŇŘŠŤŽčďěľňřšťž"},
    {0x031B, U"OUou", U"ƠƯơư"},
    {0x0327, U"CGKLNRSTcgklnrst", U"ÇĢĶĻŅŖŞŢçģķļņŗşţ"},
    {0x0328, U"AEIUaeiu", U"ĄĘĮŲąęįų"},
    {0x0653, U"\u0627", U"\u0622"},
    {0x0654, U"\u0627\u0648\u064A", U"\u0623\u0624\u0626"},
    {0x0655, U"\u0627", U"\u0625"},
}};

std::optional<char32_t> composition(char32_t letter, char32_t mark) {
    const auto row = std::ranges::find(marks, mark, &Mark::mark);
    if (row == marks.end()) return std::nullopt;
    const std::size_t place = row->letters.find(letter);
    if (place == std::u32string_view::npos) return std::nullopt;
    return row->composed[place];
}

}  // namespace

std::string composed(std::string_view text) {
    constexpr char32_t replacement = 0xFFFD;
    std::u32string characters;
    while (!text.empty()) {
        const char32_t next = takeUtf8(text).value_or(replacement);
        const auto together =
            characters.empty() ? std::nullopt : composition(characters.back(), next);
        if (together) {
            characters.back() = *together;
        } else {
            characters += next;
        }
    }
    std::string result;
    for (const char32_t character : characters) appendUtf8(result, character);
    return result;
}

}  // namespace quorvel
