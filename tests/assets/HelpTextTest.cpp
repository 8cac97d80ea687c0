#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
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

}  // namespace
}  // namespace quorvel
