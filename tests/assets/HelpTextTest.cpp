#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <string>

#include "window/Menu.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

std::string helpText() {
    std::ifstream stream(std::filesystem::path(QUORVEL_ASSETS_FOLDER) / "HowToUseQRV.txt",
                         std::ios::binary);
    EXPECT_TRUE(stream) << "HowToUseQRV.txt is missing";
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// A menu entry as a person reads it: without its mnemonic and its dots.
std::string readableCaption(std::string_view caption) {
    std::string text(caption);
    std::erase(text, '&');
    while (text.ends_with('.')) {
        text.pop_back();
    }
    return text;
}

/// One blank for each run of blanks and line breaks, as a reader takes a text.
std::string inOneLine(const std::string& text) {
    return std::regex_replace(text, std::regex("(\\s|\\\\r|\\\\n)+"), " ");
}

/// The string literals of the program's conversations; neighbouring ones are one text.
std::set<std::string> literals() {
    std::set<std::string> found;
    for (const char* folder : {"access", "commands", "reports"}) {
        for (const auto& file : std::filesystem::directory_iterator(
                 std::filesystem::path(QUORVEL_SOURCE_FOLDER) / folder)) {
            if (file.path().extension() != ".cpp") continue;
            std::ifstream stream(file.path());
            std::string code{std::istreambuf_iterator<char>(stream), {}};
            code = std::regex_replace(code, std::regex("\"\\s*\\n\\s*\""), "");
            const std::regex literal("\"((?:[^\"\\\\\\n]|\\\\.)*)\"");
            for (std::sregex_iterator one(code.begin(), code.end(), literal), end; one != end;
                 ++one)
                found.insert((*one)[1].str());
        }
    }
    EXPECT_GT(found.size(), 100U);
    return found;
}

/// What the literals ask: the sentence up to its question mark, with what stands behind it in
/// brackets.
std::set<std::string> questions() {
    std::set<std::string> found;
    const std::regex question("[A-Z][^?]{9,}\\?( \\([^)]*\\))?");
    for (const std::string& literal : literals()) {
        // A question that goes on in another line is known by the first.
        const std::string line = inOneLine(literal.substr(0, literal.find("\\r\\n(")));
        std::smatch match;
        if (std::regex_search(line, match, question)) found.insert(match[0].str());
    }
    EXPECT_GT(found.size(), 20U);
    return found;
}

TEST(HelpText, EveryLineEndsAsNotepadWantsItAndFitsItsWindow) {
    constexpr std::size_t longestLine = 78;
    std::string text = helpText();
    ASSERT_TRUE(text.ends_with("\r\n"));
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        ASSERT_GT(end, 0U);
        EXPECT_EQ(text[end - 1], '\r');
        EXPECT_LE(end - 1, longestLine) << text.substr(0, end);
        EXPECT_EQ(text.find('\r'), end - 1);
        text.erase(0, end + 1);
    }
}

TEST(HelpText, IsPlainAscii) {
    const std::string text = helpText();
    EXPECT_TRUE(std::ranges::all_of(
        text, [](char c) { return c == '\r' || c == '\n' || (c >= ' ' && c <= '~'); }));
}

TEST(HelpText, NamesTheVersion) {
    EXPECT_NE(helpText().find("Version " QUORVEL_HELP_VERSION "\r\n"), std::string::npos);
}

TEST(HelpText, SpeaksOfEveryMenuEntry) {
    const std::string text = helpText();
    for (const MenuItem& item : menuItems()) {
        if (item.caption.empty()) continue;
        const std::string way = readableCaption(item.menu) + " > " + readableCaption(item.caption);
        EXPECT_NE(text.find(way), std::string::npos) << way;
    }
}

TEST(HelpText, ExplainsEveryQuestion) {
    const std::string text = inOneLine(helpText());
    for (const std::string& question : questions()) {
        EXPECT_NE(text.find('"' + question + '"'), std::string::npos) << question;
    }
}

TEST(HelpText, QuotesOnlyWhatTheProgramAsks) {
    const std::string text = inOneLine(helpText());
    std::string said;
    for (const std::string& literal : literals()) said += inOneLine(literal) + '\n';
    // Put together from a sentence and a letter.
    said += "What percentage is needed to receive an A?\n";
    const std::regex quoted("\"([^\"]*\\?[^\"]*)\"");
    int count = 0;
    for (std::sregex_iterator one(text.begin(), text.end(), quoted), end; one != end; ++one) {
        ++count;
        EXPECT_NE(said.find((*one)[1].str()), std::string::npos) << (*one)[1].str();
    }
    EXPECT_GT(count, 20);
}

TEST(HelpText, NamesEverySectionAsItsContentsDo) {
    const std::string text = helpText();
    const std::regex entry("\r\n +(\\d+)\\. ([^\r]+)");
    const std::string contents = text.substr(0, text.find("\r\n1. "));
    int count = 0;
    for (std::sregex_iterator one(contents.begin(), contents.end(), entry), end; one != end;
         ++one) {
        std::string heading = (*one)[2].str();
        std::ranges::transform(heading, heading.begin(),
                               [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
        EXPECT_EQ((*one)[1].str(), std::to_string(++count));
        EXPECT_NE(text.find("\r\n" + std::to_string(count) + ". " + heading + "\r\n"),
                  std::string::npos)
            << heading;
    }
    EXPECT_GT(count, 10);
}

}  // namespace
}  // namespace quorvel
