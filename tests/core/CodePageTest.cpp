#include "core/CodePage.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

const CodePage& page() {
    return CodePage::windows1252();
}

unsigned pageWhere(unsigned active, unsigned ofLanguage) {
    constexpr unsigned japanese = 932;
    return pageForTexts({active, ofLanguage, [](unsigned number) { return number != japanese; }});
}

TEST(CodePage, TextsAreInTheSystemsPageWhereItHasSingleBytes) {
    EXPECT_EQ(pageWhere(1250, 1250), 1250U);
    EXPECT_EQ(pageWhere(1251, 1250), 1251U);
    EXPECT_EQ(pageWhere(932, 932), westernPage);
}

TEST(CodePage, TextsAreInTheLanguagesPageWhereTheSystemsIsUtf8) {
    EXPECT_EQ(pageWhere(65001, 1250), 1250U);
    EXPECT_EQ(pageWhere(65001, 932), westernPage);
    EXPECT_EQ(pageWhere(65001, 0), westernPage);
}

TEST(CodePage, UpperCasesLettersWithAndWithoutAccents) {
    EXPECT_EQ(page().upperCase("Doe, jane 7"), "DOE, JANE 7");
    EXPECT_EQ(page().upperCase("\xE0\xE9\xF6\xFC\xFE"), "\xC0\xC9\xD6\xDC\xDE");
    EXPECT_EQ(page().upperCase("\xFF\x9A\x9C\x9E"), "\x9F\x8A\x8C\x8E");
}

TEST(CodePage, LeavesBytesWithoutUpperCaseAsTheyAre) {
    // Sharp s, the division and multiplication signs, the florin, the micro sign, both ordinals.
    const std::string caseless = "\xDF\xF7\xD7\x83\xB5\xAA\xBA";
    EXPECT_EQ(page().upperCase(caseless), caseless);
    EXPECT_EQ(page().upperCase("\xC0\xDE\x8A\x9F"), "\xC0\xDE\x8A\x9F");
    EXPECT_EQ(page().upperCase("@[`{"), "@[`{");
}

TEST(CodePage, UpperCasesEveryByteOnlyOnce) {
    for (int byte = 0; byte < 256; ++byte) {
        const std::string once = page().upperCase(std::string(1, static_cast<char>(byte)));
        EXPECT_EQ(page().upperCase(once), once) << "byte " << byte;
    }
}

TEST(CodePage, ComparesWithoutRegardToCase) {
    EXPECT_EQ(page().compareIgnoringCase("doe, JANE", "DOE, jane"), 0);
    EXPECT_EQ(page().compareIgnoringCase("\xE9t\xE9", "\xC9T\xC9"), 0);
    EXPECT_LT(page().compareIgnoringCase("adams", "Baker"), 0);
    EXPECT_GT(page().compareIgnoringCase("baker", "Adams"), 0);
    EXPECT_EQ(page().compareIgnoringCase("", ""), 0);
    EXPECT_LT(page().compareIgnoringCase("", "a"), 0);
    EXPECT_LT(page().compareIgnoringCase("doe", "Doe, Jane"), 0);
}

TEST(CodePage, ComparesBytesAsUnsignedNumbers) {
    EXPECT_LT(page().compareIgnoringCase("Zoe", "\xC9mile"), 0);
    EXPECT_GT(page().compareIgnoringCase("\xE9mile", "zoe"), 0);
    // Between upper and lower case letters stand six other characters: "_" sorts behind "z".
    EXPECT_GT(page().compareIgnoringCase("_", "z"), 0);
}

TEST(CodePage, TurnsBytesIntoUnicode) {
    EXPECT_EQ(page().toUtf16("A\x80\xE9\x9F"), u"A\u20AC\u00E9\u0178");
    EXPECT_EQ(page().toUtf8("A\x80\xE9"), "A\xE2\x82\xAC\xC3\xA9");
    EXPECT_EQ(page().toUtf16(""), u"");
}

TEST(CodePage, GivesUndefinedBytesTheirOwnNumber) {
    EXPECT_EQ(page().toUtf16("\x81\x8D\x8F\x90\x9D"), u"\u0081\u008D\u008F\u0090\u009D");
}

TEST(CodePage, BringsEveryByteBackFromUnicode) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
    EXPECT_EQ(page().fromUtf16(page().toUtf16(all)), all);
    EXPECT_EQ(page().fromUtf8(page().toUtf8(all)), all);
}

TEST(CodePage, WritesAQuestionMarkForACharacterThatItLacks) {
    EXPECT_EQ(page().fromUtf16(u"a\u0142b"), "a?b");
    EXPECT_EQ(page().fromUtf16(u"\U0001F600!"), "?!");
    EXPECT_EQ(page().fromUtf8("a\xC5\x82"
                              "b\xF0\x9F\x98\x80"
                              "c"),
              "a?b?c");
    EXPECT_EQ(page().fromUnicode(0x142), std::nullopt);
    EXPECT_EQ(page().fromUnicode(0x80), std::nullopt) << "byte 0x80 is another character";
    EXPECT_EQ(page().fromUnicode(0x20AC), '\x80');
    EXPECT_EQ(page().fromUnicode(0x1F600), std::nullopt);
}

TEST(CodePage, WritesOneQuestionMarkForAPairOfHalves) {
    EXPECT_EQ(page().fromUtf16(u"\U00010000"), "?") << "the first pair there is, at the end";
    EXPECT_EQ(page().fromUtf16(u"\U0010FFFF"
                               u"a"),
              "?a")
        << "the last one";
    EXPECT_EQ(page().fromUtf8("\xF0\x90\x80\x80"
                              "a\xF4\x8F\xBF\xBF"),
              "?a?");
}

TEST(CodePage, KnowsCharactersOfEveryLengthInUtf8) {
    struct Case {
        char16_t character;
        const char* utf8;
    };
    const Case cases[] = {
        {0x7F, "\x7F"},           {0x80, "\xC2\x80"},       {0x7FF, "\xDF\xBF"},
        {0x800, "\xE0\xA0\x80"},  {0xD7FF, "\xED\x9F\xBF"}, {0xE000, "\xEE\x80\x80"},
        {0xFFFF, "\xEF\xBF\xBF"},
    };
    for (const Case& c : cases) {
        CodePage::UnicodeTable unicode{};
        unicode[0x7F] = 0x7F;
        const unsigned byte = c.character == 0x7F ? 0x7F : 0x80;
        unicode[byte] = c.character;
        const CodePage other(unicode, {});
        const std::string text(1, static_cast<char>(byte));
        EXPECT_EQ(other.toUtf8(text), c.utf8) << c.utf8;
        EXPECT_EQ(other.fromUtf8(c.utf8), text) << c.utf8;
        EXPECT_EQ(other.fromUtf16(std::u16string(1, c.character)), text) << c.utf8;
        // Not the second half of any pair.
        EXPECT_EQ(other.fromUtf16(std::u16string{0xD800, c.character}), "?" + text) << c.utf8;
    }
}

TEST(CodePage, WritesAQuestionMarkForEachHalfOfAPairThatStandsAlone) {
    const std::u16string text{0xD800, u'a', 0xDC00, 0xDC00, 0xD801, 0xD802};
    EXPECT_EQ(page().fromUtf16(text), "?a????");
}

TEST(CodePage, WritesAQuestionMarkForEachDamagedByte) {
    EXPECT_EQ(page().fromUtf8("\x80"
                              "a"),
              "?a")
        << "a following byte without a first one";
    EXPECT_EQ(page().fromUtf8("\xC3"), "?") << "cut short";
    EXPECT_EQ(page().fromUtf8("\xC3"
                              "a"),
              "?a")
        << "the following byte is missing";
    EXPECT_EQ(page().fromUtf8("\xC0\x80"), "??") << "longer than needed";
    EXPECT_EQ(page().fromUtf8("\xE0\x82\xA9"), "???") << "longer than needed";
    EXPECT_EQ(page().fromUtf8("\xED\xA0\x80"), "???") << "half of a pair";
    EXPECT_EQ(page().fromUtf8("\xF4\x90\x80\x80"), "????") << "beyond the last character";
    EXPECT_EQ(page().fromUtf8("\xF5\x80\x80\x80"), "????") << "beyond the last character";
}

TEST(CodePage, WritesADigitOfAnotherScriptThatItLacksAsItsDigit) {
    EXPECT_EQ(page().fromUtf16(u"\uFF11\uFF10.\uFF19"), "10.9") << "full width";
    EXPECT_EQ(page().fromUtf16(u"\u0663\u06F4\u0967\u0E55"), "3415");
    EXPECT_EQ(page().fromUtf16(u"\U0001D7D8\U0001D7FF"), "09") << "beyond 16 bits";
    EXPECT_EQ(page().fromUtf8("\xEF\xBC\x97"), "7");
    EXPECT_EQ(page().fromUtf16(u"\uFF0F\uFF1A\u066A"), "???") << "beside the digits";
    EXPECT_EQ(page().fromUtf16(u"\u2460\u2077"), "??") << "digits in a circle and raised";
    EXPECT_EQ(page().fromUtf16(u"\u00B2"), "\xB2") << "a character that the page has";
    EXPECT_EQ(page().fromUnicode(0xFF11), std::nullopt);
}

TEST(CodePage, KeepsTheDigitsOfAnotherScriptThatItHas) {
    CodePage::UnicodeTable unicode{};
    for (std::size_t byte = 0; byte < unicode.size(); ++byte)
        unicode[byte] = static_cast<char16_t>(byte < 0x80 ? byte : 0x0E50 - 0xF0 + byte);
    const CodePage thai(unicode, {});
    EXPECT_EQ(thai.fromUtf16(u"\u0E51"), "\xF1");
    EXPECT_EQ(thai.withPlainDigits("\xF1\xF9.5 \xE1"), "19.5 \xE1");
    EXPECT_EQ(page().withPlainDigits("\xF1 7\xB2"), "\xF1 7\xB2");
}

TEST(CodePage, TakesItsTablesFromElsewhere) {
    CodePage::UnicodeTable unicode{};
    CodePage::UpperCaseTable upperCase{};
    for (std::size_t byte = 0; byte < 256; ++byte) {
        unicode[byte] = static_cast<char16_t>(byte < 0x80 ? byte : 0x400 + byte);
        upperCase[byte] = static_cast<char>(byte == 0xF0 ? 0xD0 : byte);
    }
    const CodePage other(unicode, upperCase);
    EXPECT_EQ(other.toUtf16("\xF0"), u"\u04F0");
    EXPECT_EQ(other.fromUtf16(u"\u04F0\u00E9"), "\xF0?");
    EXPECT_EQ(other.compareIgnoringCase("\xF0", "\xD0"), 0);
}

}  // namespace
}  // namespace quorvel
