#include <filesystem>
#include <string>

#include "qrv/Problem.h"
#include "qrv/SettingsInForce.h"
#include "storage/RecordFile.h"
#include "tests/fakes/MemoryFiles.h"

#include <gtest/gtest.h>

namespace quorvel {

namespace {

class SettingsInForceTest : public testing::Test {
  protected:
    void putScale(const std::filesystem::path& folder, std::int16_t lowest,
                  const std::string& roundUp) {
        RecordWriter writer;
        for (int grade = 4; grade >= 0; --grade) {
            writer.integer(static_cast<std::int16_t>(lowest + grade));
        }
        writer.text(roundUp);
        const auto bytes = writer.bytes();
        files_.files[folder / "GradingScale.qrv"] = Bytes(bytes.begin(), bytes.end());
    }
    void putSchool(const std::filesystem::path& folder, const std::string& name) {
        RecordWriter writer;
        writer.text(name);
        const auto bytes = writer.bytes();
        files_.files[folder / "SchoolName.qrv"] = Bytes(bytes.begin(), bytes.end());
    }

    std::string scaleFor(const Request& request, const std::string& sheet) {
        return scaleText(settingsFor(request, sheet, environment_));
    }

    MemoryFiles files_;
    Environment environment_{.files = files_,
                             .codePage = CodePage::windows1252(),
                             .programFolder = std::nullopt,
                             .expandsWildcards = false};
};

TEST_F(SettingsInForceTest, WithoutAnySettingsTheScaleIsBuiltIn) {
    EXPECT_EQ(scaleFor({}, "/a/Grades/x.qrv"), "94,86,76,70,60 (built in)");
    EXPECT_EQ(scaleFor({}, "-"), "94,86,76,70,60 (built in)");
}

TEST_F(SettingsInForceTest, ASheetInGradesHasThoseOfTheFolderAbove) {
    putScale("/a", 10, "0.5");
    const std::string own = "14,13,12,11,10, each lowered by 0.5 (from /a/GradingScale.qrv)";
    EXPECT_EQ(scaleFor({}, "/a/Grades/x.qrv"), own);
    EXPECT_EQ(scaleFor({}, "/a/grades/x.qrv"), own);
    EXPECT_EQ(scaleFor({}, "/a/b/../Grades/./x.qrv"), own);
    EXPECT_EQ(scaleFor({}, "/a/x.qrv"), "94,86,76,70,60 (built in)");
    EXPECT_EQ(scaleFor({}, "/b/Grades/x.qrv"), "94,86,76,70,60 (built in)");
}

TEST_F(SettingsInForceTest, OtherwiseTheyAreThoseOfTheProgramsFolder) {
    environment_.programFolder = "/program";
    putSchool("/program", "North");
    EXPECT_EQ(scaleFor({}, "/b/x.qrv"), "94,86,76,70,60 (built in)");
    EXPECT_EQ(settingsFor({}, "/b/x.qrv", environment_).settings.schoolName, "North");
    putScale("/program", 20, "0");
    EXPECT_EQ(scaleFor({}, "/b/x.qrv"), "24,23,22,21,20 (from /program/GradingScale.qrv)");
    putScale("/a", 10, "0");
    EXPECT_EQ(scaleFor({}, "/a/Grades/x.qrv"), "14,13,12,11,10 (from /a/GradingScale.qrv)");
    EXPECT_EQ(scaleFor({}, "/b/Grades/x.qrv"), "24,23,22,21,20 (from /program/GradingScale.qrv)");
}

TEST_F(SettingsInForceTest, WhatIsAskedForComesFirst) {
    putScale("/a", 10, "0.5");
    putScale("/b", 20, "0");
    putSchool("/b", "South");
    Request request;
    request.settings = "/b";
    EXPECT_EQ(scaleFor(request, "/a/Grades/x.qrv"), "24,23,22,21,20 (from /b/GradingScale.qrv)");
    request.roundUp = true;
    EXPECT_EQ(scaleFor(request, ""),
              "24,23,22,21,20, each lowered by 0.5 (from /b/GradingScale.qrv)");
    request.scale = "90,80,70,60,50";
    EXPECT_EQ(scaleFor(request, ""), "90,80,70,60,50, each lowered by 0.5 (given)");
    request = {};
    request.scale = "90,80,70,60,50";
    EXPECT_EQ(scaleFor(request, "/a/Grades/x.qrv"), "90,80,70,60,50, each lowered by 0.5 (given)")
        << "whether it rounds is still that folder's";
    request.scale = "default";
    EXPECT_EQ(scaleFor(request, "/a/Grades/x.qrv"), "94,86,76,70,60 (built in)");
    request.settings = "/b";
    EXPECT_EQ(settingsFor(request, "", environment_).settings.schoolName, "South");
}

TEST_F(SettingsInForceTest, AFolderWithoutAScaleOrWithOneThatCannotBeReadIsAnError) {
    Request request;
    request.settings = "/a";
    EXPECT_THROW(scaleFor(request, ""), InputError);
    files_.folders.insert("/b/GradingScale.qrv");
    EXPECT_THROW(scaleFor({}, "/b/Grades/x.qrv"), InputError);
}

}  // namespace

}  // namespace quorvel
