#include "core/Paths.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

std::string textOfPath(const std::filesystem::path& path) {
    return pathText(path, CodePage::windows1252());
}

TEST(Paths, SeparateFoldersByABackslashEverywhere) {
    EXPECT_EQ(textOfPath(std::filesystem::path("Grades") / "a.qrv"), "Grades\\a.qrv");
    EXPECT_EQ(textOfPath("/home/doe/Grades/a.qrv"), "\\home\\doe\\Grades\\a.qrv");
    EXPECT_EQ(textOfPath("C:\\Grades/a.qrv"), "C:\\Grades\\a.qrv");
    EXPECT_EQ(textOfPath(""), "");
    EXPECT_EQ(textOfPath("True"), "True");
}

TEST(Paths, AreCutDownToTheCodePage) {
    EXPECT_EQ(textOfPath(std::filesystem::path(u"Grades/\u00C9t\u00E9 \u0142.qrv")),
              "Grades\\\xC9t\xE9 ?.qrv");
}

TEST(Paths, ThatAreNoTextStillHaveOne) {
    EXPECT_EQ(textOfPath("Grades/\xFF.qrv"), "Grades\\?.qrv");
}

TEST(Paths, EndInTheFileName) {
    EXPECT_EQ(fileNameText("C:\\Grades\\a.qrv"), "a.qrv");
    EXPECT_EQ(fileNameText("a.qrv"), "a.qrv");
    EXPECT_EQ(fileNameText("C:\\Grades\\"), "");
    EXPECT_EQ(fileNameText(""), "");
    EXPECT_EQ(fileNameText("C:/Grades/a.qrv"), "C:/Grades/a.qrv");
}

}  // namespace
}  // namespace quorvel
