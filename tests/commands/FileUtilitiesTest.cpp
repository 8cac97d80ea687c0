#include <algorithm>

#include "commands/FileUtilities.h"
#include "storage/SheetFile.h"
#include "tests/fakes/TestProgram.h"

namespace quorvel {
namespace {

constexpr std::string_view insertDisk =
    "Please insert a disk into the A: (Floppy) Drive to begin the backup.";
constexpr std::string_view warning =
    "WARNING: This will delete all students and grades currently on this grade sheet!  Continue?";

class FileUtilities : public TestProgram {
  protected:
    void answerInsertDisk(Answer answer) {
        dialogs.expectMessage("Backup", insertDisk, Icon::None, Buttons::OkCancel, answer);
    }
    void answerWarning(Answer answer) {
        dialogs.expectMessage("Warning!", warning, Icon::None, Buttons::YesNo, answer);
    }
    void chooseFile(const std::optional<std::filesystem::path>& file) {
        dialogs.expectOpenFile("Copy Students From...", "/Quorvel/Grades", file);
    }
    void copyFrom(const GradeSheet& other) {
        ASSERT_TRUE(writeSheet(files, "/Quorvel/Grades/other.qrv", other));
        answerWarning(Answer::Yes);
        chooseFile("/Quorvel/Grades/other.qrv");
        mnuCopy(program);
    }

    /// Two students and four assignments "Own 1" to "Own 4" worth 11 to 14, with scores.
    void makeOpenSheet() {
        sheet.sheetTitle = "Own - 1";
        sheet.addStudent("Ann", "A");
        sheet.addStudent("Bob", "B");
        for (int number = 1; number <= 4; ++number) {
            sheet.addAssignment("Own " + std::to_string(number),
                                static_cast<std::int16_t>(10 + number));
            sheet.setScore(number, 1, Score::ofText("5"));
            sheet.setScore(number, 2, Score::excused());
        }
        state.currentPath = "/Quorvel/Grades/own.qrv";
        state.sheetFileName = "own.qrv";
    }
    /// Students in no order and assignments "Other 1", "Other 2", ... worth 21, 22, ...
    static GradeSheet otherSheet(int students, int assignments) {
        GradeSheet other;
        other.sheetTitle = "Other - 2";
        for (int number = students; number >= 1; --number)
            other.addStudent("Student " + std::to_string(number), std::to_string(number));
        for (int number = 1; number <= assignments; ++number) {
            other.addAssignment("Other " + std::to_string(number),
                                static_cast<std::int16_t>(20 + number));
            for (int student = 1; student <= students; ++student)
                other.setScore(number, student, Score::ofText("9"));
        }
        return other;
    }
    void expectEveryCellEmpty() {
        for (int assignment = 1; assignment <= sheet.assignmentCount(); ++assignment)
            for (int student = 1; student <= sheet.studentCount(); ++student)
                EXPECT_TRUE(sheet.score(assignment, student).isEmpty());
    }
};

using Copies = std::vector<FaultyFiles::Copy>;

TEST_F(FileUtilities, ASheetThatWasNeverSavedHasNothingToBackUp) {
    dialogs.expectMessage("Quorvel", "The file you currently are working on is not saved.");
    mnuBackup1(program);
    EXPECT_TRUE(disk.copies.empty());
}

TEST_F(FileUtilities, BackingUpThisFileCopiesItAsItIsOnDisk) {
    makeOpenSheet();
    state.isDirty = true;
    state.sheetFileName.clear();
    answerInsertDisk(Answer::Ok);
    mnuBackup1(program);
    EXPECT_EQ(disk.copies, (Copies{{"/Quorvel/Grades/own.qrv", "A:\\own.qrv"}}));
    EXPECT_EQ(state.sheetFileName, "own.qrv");
    EXPECT_TRUE(state.isDirty);
    EXPECT_TRUE(files.files.empty());
}

TEST_F(FileUtilities, APathWithoutAFolderIsCopiedUnderItsWholeText) {
    state.currentPath = "True";
    answerInsertDisk(Answer::Ok);
    mnuBackup1(program);
    EXPECT_EQ(disk.copies, (Copies{{"/Quorvel/True", "A:\\True"}}));
    EXPECT_EQ(state.sheetFileName, "True");
}

TEST_F(FileUtilities, AFileWhoseNameTheCodePageLacksIsCopiedUnderItsOwnName) {
    const std::filesystem::path name = u8"\u0141\u00F3d\u017A.qrv";
    state.currentPath = "/Quorvel/Grades" / name;
    answerInsertDisk(Answer::Ok);
    mnuBackup1(program);
    std::filesystem::path copy = "A:\\";
    copy += name;
    EXPECT_EQ(disk.copies, (Copies{{"/Quorvel/Grades" / name, copy}}));
}

TEST_F(FileUtilities, WithoutADiskNothingIsCopied) {
    makeOpenSheet();
    answerInsertDisk(Answer::Cancel);
    mnuBackup1(program);
    answerInsertDisk(Answer::Cancel);
    mnuBackup(program);
    EXPECT_TRUE(disk.copies.empty());
    EXPECT_EQ(state.sheetFileName, "own.qrv");
}

TEST_F(FileUtilities, ACopyThatFailsIsNotReported) {
    makeOpenSheet();
    disk.copiesAreKept = false;
    placeFile("Grades/a.qrv", "");
    answerInsertDisk(Answer::Ok);
    mnuBackup1(program);
    answerInsertDisk(Answer::Ok);
    mnuBackup(program);
    EXPECT_EQ(disk.copies.size(), 2U);
}

TEST_F(FileUtilities, BackingUpAllCopiesEverySheetFileOfTheGradesFolderOnce) {
    for (const char* file : {"Grades/a.qrv", "Grades/B.QRV", "Grades/notes.txt", "Grades/qrv",
                             "Grades/old/c.qrv", "TN.qrv"})
        placeFile(file, "x");
    answerInsertDisk(Answer::Ok);
    mnuBackup(program);
    ASSERT_EQ(disk.copies.size(), 2U);
    const FaultyFiles::Copy small{"/Quorvel/Grades/a.qrv", "A:\\a.qrv"};
    const FaultyFiles::Copy capital{"/Quorvel/Grades/B.QRV", "A:\\B.QRV"};
    EXPECT_EQ(std::ranges::count(disk.copies, small), 1);
    EXPECT_EQ(std::ranges::count(disk.copies, capital), 1);
}

TEST_F(FileUtilities, BackingUpAnEmptyGradesFolderCopiesAndSaysNothing) {
    answerInsertDisk(Answer::Ok);
    mnuBackup(program);
    EXPECT_TRUE(disk.copies.empty());
}

TEST_F(FileUtilities, CopyingStudentsFromAFileThatCannotBeReadEndsLikeACancelledDialog) {
    makeOpenSheet();
    ASSERT_TRUE(writeSheet(files, "/Quorvel/Grades/other.qrv", otherSheet(20, 4)));
    disk.locked.insert("/Quorvel/Grades/other.qrv");
    answerWarning(Answer::Yes);
    chooseFile("/Quorvel/Grades/other.qrv");
    mnuCopy(program);
    EXPECT_EQ(sheet.studentCount(), 2);
    EXPECT_EQ(sheet.sheetTitle, "Own - 1");
    EXPECT_EQ(sheet.score(1, 1), Score::ofText("5"));
    EXPECT_TRUE(window.calls.empty());
    EXPECT_TRUE(state.isDirty);
}

TEST_F(FileUtilities, CopyingStudentsTakesRosterAndClassNameAndEmptiesEveryScore) {
    makeOpenSheet();
    copyFrom(otherSheet(20, 4));
    EXPECT_EQ(sheet.studentCount(), 20);
    EXPECT_EQ(sheet.assignmentCount(), 4);
    EXPECT_EQ(sheet.sheetTitle, "Other - 2");
    expectEveryCellEmpty();
    EXPECT_TRUE(state.isDirty);
    EXPECT_EQ(window.calls, (Calls{"setStudentScrollMaximum 20", "RefreshGrid"}));
}

TEST_F(FileUtilities, CopyingStudentsKeepsTheOtherFilesOrder) {
    makeOpenSheet();
    copyFrom(otherSheet(3, 0));
    EXPECT_EQ(sheet.studentName(1), "Student 3");
    EXPECT_EQ(sheet.studentAlias(1), "3");
    EXPECT_EQ(sheet.studentName(3), "Student 1");
}

TEST_F(FileUtilities, CopyingStudentsKeepsAllAssignmentsButTheLast) {
    makeOpenSheet();
    copyFrom(otherSheet(2, 6));
    for (int number = 1; number <= 3; ++number) {
        EXPECT_EQ(sheet.assignmentName(number), "Own " + std::to_string(number));
        EXPECT_EQ(sheet.assignmentValue(number), 10 + number);
    }
    EXPECT_EQ(sheet.assignmentName(4), "Other 4");
    EXPECT_EQ(sheet.assignmentValue(4), 24);
}

TEST_F(FileUtilities, CopyingFromASheetWithAsManyAssignmentsTakesItsLastOne) {
    makeOpenSheet();
    copyFrom(otherSheet(2, 4));
    EXPECT_EQ(sheet.assignmentName(3), "Own 3");
    EXPECT_EQ(sheet.assignmentName(4), "Other 4");
    EXPECT_EQ(sheet.assignmentValue(4), 24);
}

TEST_F(FileUtilities, CopyingFromASheetWithFewerAssignmentsKeepsTheLastOneToo) {
    makeOpenSheet();
    copyFrom(otherSheet(2, 3));
    for (int number = 1; number <= 4; ++number) {
        EXPECT_EQ(sheet.assignmentName(number), "Own " + std::to_string(number));
        EXPECT_EQ(sheet.assignmentValue(number), 10 + number);
    }
}

TEST_F(FileUtilities, CopyingIntoASheetWithoutAssignmentsTakesNone) {
    copyFrom(otherSheet(2, 3));
    EXPECT_EQ(sheet.studentCount(), 2);
    EXPECT_EQ(sheet.assignmentCount(), 0);
    EXPECT_EQ(sheet.assignmentCountIfSet(), std::nullopt);
}

TEST_F(FileUtilities, CopyingFromASheetThatNeverHadAStudentUnsetsTheCount) {
    makeOpenSheet();
    copyFrom(otherSheet(0, 1));
    EXPECT_EQ(sheet.studentCount(), 0);
    EXPECT_EQ(sheet.studentCountIfSet(), std::nullopt);
    EXPECT_EQ(window.calls, (Calls{"setStudentScrollMaximum 0", "RefreshGrid"}));
}

TEST_F(FileUtilities, CopyingKeepsTheOpenSheetsFile) {
    makeOpenSheet();
    state.saveMode = SaveMode::Save;
    copyFrom(otherSheet(1, 1));
    EXPECT_EQ(state.currentPath, "/Quorvel/Grades/own.qrv");
    EXPECT_EQ(state.sheetFileName, "own.qrv");
    EXPECT_EQ(state.saveMode, SaveMode::Save);
}

TEST_F(FileUtilities, AnsweringNoToTheWarningKeepsStudentsAndScores) {
    makeOpenSheet();
    answerWarning(Answer::No);
    dialogs.expectMessage("Quorvel", "Copy Students Cancelled");
    mnuCopy(program);
    EXPECT_EQ(sheet.studentCount(), 2);
    EXPECT_EQ(sheet.score(1, 1).text(), "5");
    EXPECT_TRUE(state.isDirty);
    EXPECT_TRUE(window.calls.empty());
}

TEST_F(FileUtilities, CopyingWithoutChoosingAFileEndsSilently) {
    makeOpenSheet();
    answerWarning(Answer::Yes);
    chooseFile(std::nullopt);
    mnuCopy(program);
    EXPECT_EQ(sheet.studentCount(), 2);
    EXPECT_EQ(sheet.sheetTitle, "Own - 1");
    EXPECT_TRUE(state.isDirty);
    EXPECT_TRUE(window.calls.empty());
}

TEST_F(FileUtilities, AFileThatCannotBeReadReadsAsEmpty) {
    makeOpenSheet();
    answerWarning(Answer::Yes);
    chooseFile("/Quorvel/Grades/missing.qrv");
    mnuCopy(program);
    EXPECT_EQ(sheet.studentCount(), 0);
    EXPECT_EQ(sheet.sheetTitle, "");
    EXPECT_EQ(sheet.assignmentCount(), 4);
    EXPECT_EQ(sheet.assignmentName(4), "Own 4");
}

}  // namespace
}  // namespace quorvel
