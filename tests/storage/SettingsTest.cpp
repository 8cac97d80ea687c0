#include <array>
#include <cstdint>
#include <string>

#include "storage/Settings.h"
#include "tests/fakes/TestProgram.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

constexpr std::array<std::int16_t, 5> defaultMinimums{94, 86, 76, 70, 60};

Bytes scaleFile(std::array<int, 5> minimums, std::string_view roundUp) {
    Bytes bytes;
    for (const int minimum : minimums) bytes = bytes + integerRecord(minimum, 0xCC);
    return bytes + textRecord(roundUp, 0xCC);
}

Bytes fontFile(std::string_view name, const Bytes& size) {
    return taggedTextRecord(name, 0xCC) + recordWith(size, 0xCC);
}

const Bytes size11 = hex("04 00 00 00 30 41");

class Settings : public TestProgram {
  protected:
    Bytes courierNew10() {
        return taggedTextRecord("Courier New") + recordWith(hex("04 00 00 00 20 41"));
    }
};

TEST_F(Settings, AFirstRunInAnEmptyFolderTakesTheDefaults) {
    state.gradingScale = {{1, 2, 3, 4, 5}, "x"};
    state.schoolName = "left over";
    state.teacherName = "left over";
    state.recentFiles[0] = "left over";
    readSettings(disk, state);
    readPrintFont(disk, state);
    EXPECT_EQ(state.gradingScale.minimums, defaultMinimums);
    EXPECT_EQ(state.gradingScale.roundUp, "0");
    EXPECT_EQ(state.schoolName, "");
    EXPECT_EQ(state.teacherName, "");
    for (const std::string& file : state.recentFiles) EXPECT_EQ(file, "");
    EXPECT_TRUE(files.folders.contains(grades));
    EXPECT_EQ(state.printFont, (PrintFont{"Courier New", 10}));
    EXPECT_EQ(file("DefaultPrintFont.qrv"), courierNew10());
    EXPECT_EQ(files.files.size(), 1U);
}

TEST_F(Settings, StartUpClearsTheFlagsOfTheRunBeforeButNotTheOpenedRecentFile) {
    state.exitAfterSave = true;
    state.isDirty = true;
    state.openFromRecent = true;
    state.reloadForNew = true;
    readSettings(disk, state);
    EXPECT_FALSE(state.exitAfterSave);
    EXPECT_FALSE(state.isDirty);
    EXPECT_FALSE(state.reloadForNew);
    EXPECT_TRUE(state.openFromRecent);
}

TEST_F(Settings, ReadsEveryFileMadeByHand) {
    putFile("GradingScale.qrv", scaleFile({90, 80, 70, 60, 50}, "0.5"));
    putFile("SchoolName.qrv", textRecord("Elm Street School", 0xCC));
    putFile("TN.qrv", textRecord("Ms. Doe", 0xCC));
    putFile("DefaultPrintFont.qrv", fontFile("Arial", size11));
    readSettings(disk, state);
    readPrintFont(disk, state);
    EXPECT_EQ(state.gradingScale, (GradingScale{{90, 80, 70, 60, 50}, "0.5"}));
    EXPECT_EQ(state.schoolName, "Elm Street School");
    EXPECT_EQ(state.teacherName, "Ms. Doe");
    EXPECT_EQ(state.printFont, (PrintFont{"Arial", 11}));
    EXPECT_EQ(file("DefaultPrintFont.qrv"), fontFile("Arial", size11));
}

TEST_F(Settings, AFirstMinimumOfZeroBringsAllFiveDefaultsBack) {
    putFile("GradingScale.qrv", scaleFile({0, 85, 75, 65, 55}, "0.5"));
    readSettings(disk, state);
    EXPECT_EQ(state.gradingScale, (GradingScale{defaultMinimums, "0.5"}));
}

TEST_F(Settings, AnyOtherScaleIsTakenAsItStands) {
    putFile("GradingScale.qrv", scaleFile({-1, 0, 200, 0, 32767}, "maybe"));
    readSettings(disk, state);
    EXPECT_EQ(state.gradingScale, (GradingScale{{-1, 0, 200, 0, 32767}, "maybe"}));
}

TEST_F(Settings, AScaleFileCutShortReadsAsZerosAndNoRoundUp) {
    putFile("GradingScale.qrv", firstBytes(scaleFile({90, 80, 70, 60, 50}, "0.5"), 2 * 128 + 1));
    readSettings(disk, state);
    EXPECT_EQ(state.gradingScale, (GradingScale{{90, 80, 0, 0, 0}, "0"}));
}

TEST_F(Settings, ARecordBehindTheScaleDoesNotBecomeTheTeachersName) {
    putFile("GradingScale.qrv",
            scaleFile({90, 80, 70, 60, 50}, "0") + textRecord("not the teacher"));
    readSettings(disk, state);
    EXPECT_EQ(state.teacherName, "");
    putFile("TN.qrv", textRecord("Ms. Doe"));
    readSettings(disk, state);
    EXPECT_EQ(state.teacherName, "Ms. Doe");
}

TEST_F(Settings, WritesTheScaleByteForByte) {
    state.gradingScale = {{90, 80, 70, 60, -1}, "0.5"};
    writeGradingScale(disk, state);
    EXPECT_EQ(file("GradingScale.qrv"),
              joined({recordWith(hex("5A 00")), recordWith(hex("50 00")), recordWith(hex("46 00")),
                      recordWith(hex("3C 00")), recordWith(hex("FF FF")),
                      recordWith(hex("03 00 30 2E 35"))}));
}

TEST_F(Settings, WritesNamesByteForByteAndCutToARecord) {
    state.schoolName = "Elm";
    state.teacherName = std::string(127, 'x');
    writeSchoolName(disk, state);
    writeTeacherName(disk, state);
    EXPECT_EQ(file("SchoolName.qrv"), recordWith(hex("03 00 45 6C 6D")));
    EXPECT_EQ(file("TN.qrv"), recordWith(hex("7E 00"), 'x'));
    EXPECT_EQ(files.files.size(), 2U);
}

TEST_F(Settings, AChosenFontIsWrittenWhereStartUpDoesNotReadIt) {
    putFile("DefaultPrintFont.qrv", fontFile("Arial", size11));
    state.printFont = {"Courier New", 10};
    writeChosenPrintFont(disk, state);
    EXPECT_EQ(file("DefaultPrintFont.vzr"), courierNew10());
    EXPECT_EQ(file("DefaultPrintFont.qrv"), fontFile("Arial", size11));
    readPrintFont(disk, state);
    EXPECT_EQ(state.printFont, (PrintFont{"Arial", 11}));
}

TEST_F(Settings, TheFileOfTheChosenFontAloneGivesNoFont) {
    putFile("DefaultPrintFont.vzr", fontFile("Arial", size11));
    readPrintFont(disk, state);
    EXPECT_EQ(state.printFont, (PrintFont{"Courier New", 10}));
}

TEST_F(Settings, AFontWithoutANameOrASizeIsReplacedByTheFirstOne) {
    const Bytes incomplete[] = {
        {},
        taggedTextRecord("Arial"),
        fontFile("Arial", hex("00 00")),
        fontFile("Arial", hex("04 00 00 00 00 00")),
        fontFile("Arial", hex("04 00 00 00 20 C1")),  // -10
        fontFile("Arial", hex("04 00 00 00 80 7F")),  // infinity
        fontFile("Arial", hex("04 00 00 00 C0 7F")),  // not a number
        fontFile("", size11),
        emptyRecord() + recordWith(size11),
    };
    for (const Bytes& bytes : incomplete) {
        putFile("DefaultPrintFont.qrv", bytes);
        readPrintFont(disk, state);
        EXPECT_EQ(state.printFont, (PrintFont{"Courier New", 10}));
        const Bytes written = *file("DefaultPrintFont.qrv");
        EXPECT_EQ(written, courierNew10());
    }
}

TEST_F(Settings, FilesThatCannotBeReadGiveTheirDefaultsAndAreLeftAlone) {
    putFile("GradingScale.qrv", scaleFile({90, 80, 70, 60, 50}, "0.5"));
    putFile("SchoolName.qrv", textRecord("Elm Street School"));
    putFile("TN.qrv", textRecord("Ms. Doe"));
    putFile("LS.qrv", textRecord("a.qrv"));
    putFile("DefaultPrintFont.qrv", fontFile("Arial", size11));
    const auto before = files.files;
    for (const auto& [name, bytes] : before) disk.locked.insert(name);
    readSettings(disk, state);
    readPrintFont(disk, state);
    EXPECT_EQ(state.gradingScale.minimums, defaultMinimums);
    EXPECT_EQ(state.schoolName, "");
    EXPECT_EQ(state.teacherName, "");
    EXPECT_EQ(state.recentFiles[0], "");
    EXPECT_EQ(state.printFont, (PrintFont{"Courier New", 10}));
    EXPECT_EQ(files.files, before);
}

TEST_F(Settings, AFontSizeOfAnyTypeIsANumber) {
    putFile("DefaultPrintFont.qrv", fontFile("Arial", hex("02 00 0C 00")));
    readPrintFont(disk, state);
    EXPECT_EQ(state.printFont, (PrintFont{"Arial", 12}));
    putFile("DefaultPrintFont.qrv", fontFile("Arial", hex("08 00 04 00 39 2E 37 35")));
    readPrintFont(disk, state);
    EXPECT_EQ(state.printFont, (PrintFont{"Arial", 9.75F}));
}

TEST_F(Settings, AReportReadsScaleAndNamesWithoutTouchingTheFolder) {
    putFile("GradingScale.qrv", scaleFile({90, 80, 70, 60, 50}, "0.5"));
    putFile("SchoolName.qrv", textRecord("Elm Street School"));
    putFile("TN.qrv", textRecord("Ms. Doe"));
    const auto before = files.files;
    const ReportSettings settings = readReportSettings(disk, state.places.programFolder);
    EXPECT_EQ(settings.gradingScale, (GradingScale{{90, 80, 70, 60, 50}, "0.5"}));
    EXPECT_EQ(settings.schoolName, "Elm Street School");
    EXPECT_EQ(settings.teacherName, "Ms. Doe");
    EXPECT_EQ(files.files, before);
    EXPECT_TRUE(files.folders.empty());
}

TEST_F(Settings, AReportWithoutSettingsHasTheDefaults) {
    const ReportSettings settings = readReportSettings(disk, "/nowhere");
    EXPECT_EQ(settings.gradingScale, GradingScale());
    EXPECT_EQ(settings.gradingScale.minimums, defaultMinimums);
    EXPECT_EQ(settings.schoolName, "");
    EXPECT_EQ(settings.teacherName, "");
}

TEST_F(Settings, StartUpGoesOnWhereNothingCanBeWritten) {
    files.readOnly = true;
    readSettings(disk, state);
    readPrintFont(disk, state);
    EXPECT_EQ(state.printFont, (PrintFont{"Courier New", 10}));
    EXPECT_TRUE(files.files.empty());
}

TEST_F(Settings, AnyFailureWhileTheScaleIsWrittenLeavesTheOldOneOrTheNewOne) {
    const Bytes old = scaleFile({90, 80, 70, 60, 50}, "0.5");
    putFile("GradingScale.qrv", old);
    writeGradingScale(disk, state);
    const int operations = disk.operations();
    const Bytes renewed = *file("GradingScale.qrv");
    ASSERT_NE(renewed, old);
    for (const auto fault :
         {FaultyFiles::Fault::Fail, FaultyFiles::Fault::Shorten, FaultyFiles::Fault::PowerCut}) {
        for (int operation = 1; operation <= operations; ++operation) {
            putFile("GradingScale.qrv", old);
            disk.breakAt(operation, fault);
            writeGradingScale(disk, state);
            const Bytes bytes = *file("GradingScale.qrv");
            EXPECT_TRUE(bytes == old || bytes == renewed) << operation;
            files.files.clear();
        }
    }
}

}  // namespace
}  // namespace quorvel
