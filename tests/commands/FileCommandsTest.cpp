#include <algorithm>
#include <optional>

#include "commands/FileCommands.h"
#include "tests/fakes/FileCommandsFixture.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

using Open = FileCommands;

TEST_F(Open, ReadsTheChosenFile) {
    sheet = GradeSheet();
    files.files[aFile] = sampleFile(0xCC);
    expectOpenDialog(aFile);
    mnuOpen(program);
    EXPECT_EQ(contentOf(sheet), sampleContent());
    EXPECT_EQ(state.currentPath, aFile);
    EXPECT_EQ(state.sheetFileName, "a.qrv");
    EXPECT_EQ(state.saveMode, SaveMode::Save);
    EXPECT_FALSE(state.isDirty);
    EXPECT_FALSE(state.openFromRecent);
    EXPECT_EQ(window.calls, (Calls{"setCaption a.qrv", "resetHeadings", "RefreshGrid"}));
    EXPECT_EQ(state.recentFiles[0], "\\Quorvel\\Grades\\a.qrv");
    EXPECT_EQ(bytesOn(aFile), sampleFile(0xCC));
}

TEST_F(Open, ReplacesTheSheetThatWasOpen) {
    files.files[bFile] = joined({taggedIntegerRecord(1), emptyRecord(), textRecord("Art"),
                                 textRecord("Poe, Pat"), textRecord("Pat")});
    expectOpenDialog(bFile);
    mnuOpen(program);
    EXPECT_EQ(contentOf(sheet),
              "students 1, assignments never set, title 'Art'\n'Poe, Pat' 'Pat'\n");
}

TEST_F(Open, WhenCanceledTheSheetStaysAndTheNextSaveAsks) {
    workOnA();
    state.isDirty = false;
    expectOpenDialog(std::nullopt);
    mnuOpen(program);
    EXPECT_EQ(contentOf(sheet), sampleContent());
    EXPECT_EQ(state.currentPath, "");
    EXPECT_EQ(state.saveMode, SaveMode::Save);
    EXPECT_TRUE(window.calls.empty());
    EXPECT_EQ(file("LS.qrv"), std::nullopt);
    expectSaveDialog(bFile);
    mnuSave(program);
    EXPECT_EQ(bytesOn(aFile), hex("01"));
}

TEST_F(Open, OverUnsavedChangesAsksFirstAndNoEndsIt) {
    workOnA();
    expectYesNo("Load File",
                "Are you sure you want to load a new grade sheet without saving this one?",
                Answer::No);
    dialogs.expectMessage("Cancelation", "Load File Canceled", Icon::Critical, Buttons::Ok,
                          Answer::Ok);
    mnuOpen(program);
    EXPECT_EQ(contentOf(sheet), sampleContent());
    expectStillDirtyAt({});
    EXPECT_TRUE(window.calls.empty());
}

TEST_F(Open, OverUnsavedChangesGoesOnAfterYes) {
    workOnA();
    files.files[bFile] = sampleFile();
    sheet = GradeSheet();
    expectYesNo("Load File",
                "Are you sure you want to load a new grade sheet without saving this one?",
                Answer::Yes);
    expectOpenDialog(bFile);
    mnuOpen(program);
    EXPECT_EQ(contentOf(sheet), sampleContent());
    EXPECT_FALSE(state.isDirty);
}

TEST_F(Open, AMissingFileIsAnEmptySheetUnderItsNameWithoutAMessage) {
    expectOpenDialog(bFile);
    mnuOpen(program);
    EXPECT_EQ(contentOf(sheet), "students never set, assignments never set, title ''\n");
    EXPECT_EQ(state.currentPath, bFile);
    EXPECT_EQ(state.saveMode, SaveMode::Save);
}

TEST_F(Open, AFileThatIsLockedGivesAnEmptySheetThatNoSaveCanPutInItsPlace) {
    workOnA();
    state.isDirty = false;
    files.files[bFile] = sampleFile();
    disk.locked.insert(bFile);
    expectOpenDialog(bFile);
    mnuOpen(program);
    EXPECT_EQ(contentOf(sheet), contentOf(GradeSheet()));
    EXPECT_EQ(state.currentPath, "");
    EXPECT_EQ(state.sheetFileName, "");
    EXPECT_EQ(state.saveMode, SaveMode::SaveAs);
    EXPECT_FALSE(state.isDirty);
    EXPECT_FALSE(state.openFromRecent);
    EXPECT_EQ(window.calls, (Calls{"setCaption Quorvel", "resetHeadings", "RefreshGrid"}));
    EXPECT_EQ(state.recentFiles[0], "");
    EXPECT_EQ(file("LS.qrv"), std::nullopt);

    disk.locked.clear();
    expectSaveDialog(std::nullopt);
    mnuSave(program);
    EXPECT_EQ(bytesOn(bFile), sampleFile());
}

TEST_F(Open, AFileWhoseReadingBreaksOffIsNeverHalfASheet) {
    files.files[bFile] = sampleFile();
    int operations = 0;
    for (int operation = 0; operation == 0 || operation <= operations; ++operation) {
        sheet = GradeSheet();
        disk.breakAt(operation, FaultyFiles::Fault::Shorten);
        expectOpenDialog(bFile);
        mnuOpen(program);
        if (operation == 0) operations = disk.operations();
        EXPECT_EQ(contentOf(sheet), sampleContent()) << operation;
    }
    EXPECT_GT(operations, 5);
}

TEST_F(Open, AFileThatIsLockedForAMomentIsWaitedFor) {
    sheet = GradeSheet();
    files.files[bFile] = sampleFile();
    disk.locked.insert(bFile);
    disk.pausesUntilReleased = 20;
    expectOpenDialog(bFile);
    mnuOpen(program);
    EXPECT_EQ(contentOf(sheet), sampleContent());
    EXPECT_EQ(state.currentPath, bFile);
}

TEST_F(Open, AFileCutShortIsReadAsFarAsItGoes) {
    files.files[bFile] = firstBytes(sampleFile(), 11 * 128);
    expectOpenDialog(bFile);
    mnuOpen(program);
    EXPECT_EQ(contentOf(sheet),
              "students 2, assignments 3, title 'Math - 1'\n'Doe, Jane' 'Jane'\n'' ''\n"
              "'' 0: text '17' text 'E'\n'' 0: empty int16 0\n"
              "'' 0: text '12.25' single 10.000000\n");
}

TEST_F(Open, ASheetWithoutStudentsLeavesTheClassAverageAsItWasComputedLast) {
    sheet.recomputeFigures(GradingScale());
    const auto average = sheet.classAverage();
    ASSERT_TRUE(average);
    files.files[bFile] = emptyRecord() + emptyRecord() + textRecord("");
    expectOpenDialog(bFile);
    mnuOpen(program);
    EXPECT_EQ(sheet.studentCount(), 0);
    EXPECT_EQ(sheet.classAverage(), average);
}

TEST_F(Open, AnotherFileIsListedBeforeTheOneBefore) {
    files.files[aFile] = files.files[bFile] = sampleFile();
    expectOpenDialog(aFile);
    mnuOpen(program);
    expectOpenDialog(bFile);
    mnuOpen(program);
    EXPECT_EQ(state.recentFiles[0], "\\Quorvel\\Grades\\b.qrv");
    EXPECT_EQ(state.recentFiles[1], "\\Quorvel\\Grades\\a.qrv");
}

class RecentEntry : public FileCommands {
  protected:
    RecentEntry() {
        state.mnuPFile[0] = {.caption = "a.qrv", .visible = true};
        state.mnuPFile[8] = {.caption = "i.qrv", .visible = true};
        files.files[aFile] = sampleFile();
    }
};

TEST_F(RecentEntry, OpensTheDialogAndLoadsWhatIsChosenThere) {
    sheet = GradeSheet();
    expectOpenDialog(aFile);
    mnuPFile(program, 9);
    EXPECT_EQ(contentOf(sheet), sampleContent());
    EXPECT_EQ(state.currentPath, aFile);
    EXPECT_FALSE(state.openFromRecent);
}

TEST_F(RecentEntry, WhenCanceledTheNextSaveWritesAFileNamedTrue) {
    workOnA();
    state.isDirty = false;
    expectOpenDialog(std::nullopt);
    mnuPFile(program, 1);
    EXPECT_EQ(state.currentPath, "True");
    mnuSave(program);
    EXPECT_EQ(file("True"), sampleFile());
    EXPECT_EQ(bytesOn(aFile), hex("01"));
    EXPECT_EQ(state.currentPath, "True");
    EXPECT_EQ(window.calls, Calls{"setCaption True"});
    EXPECT_EQ(state.recentFiles[0], "True");
}

TEST_F(RecentEntry, WhenCanceledForASheetWithoutAFileTheNextSaveAsks) {
    expectOpenDialog(std::nullopt);
    mnuPFile(program, 1);
    EXPECT_EQ(state.currentPath, "True");
    expectSaveDialog(bFile);
    mnuSave(program);
    EXPECT_EQ(file("True"), std::nullopt);
    EXPECT_EQ(bytesOn(bFile), sampleFile());
}

TEST_F(RecentEntry, OfALockedFileLeavesNoPathNotEvenTrue) {
    disk.locked.insert(aFile);
    expectOpenDialog(aFile);
    mnuPFile(program, 1);
    EXPECT_EQ(contentOf(sheet), contentOf(GradeSheet()));
    EXPECT_EQ(state.currentPath, "");
    EXPECT_FALSE(state.openFromRecent);
    expectSaveDialog(std::nullopt);
    mnuSave(program);
    EXPECT_EQ(file("True"), std::nullopt);
}

TEST_F(RecentEntry, WhenDeclinedOverUnsavedChangesThePathIsTrueAlready) {
    workOnA();
    expectYesNo("Load File",
                "Are you sure you want to load a new grade sheet without saving this one?",
                Answer::No);
    dialogs.expectMessage("Cancelation", "Load File Canceled", Icon::Critical, Buttons::Ok,
                          Answer::Ok);
    mnuPFile(program, 1);
    expectStillDirtyAt("True");
}

TEST_F(RecentEntry, OfADisabledEntryThePathIsFalse) {
    state.mnuPFile[0].enabled = false;
    expectOpenDialog(std::nullopt);
    mnuPFile(program, 1);
    EXPECT_EQ(state.currentPath, "False");
}

TEST_F(RecentEntry, WhenCanceledAnOpenThatIsCanceledClearsThePath) {
    expectOpenDialog(std::nullopt);
    mnuPFile(program, 1);
    expectOpenDialog(std::nullopt);
    mnuOpen(program);
    EXPECT_EQ(state.currentPath, "");
}

class New : public FileCommands {
  protected:
    void expectNewQuestion(Answer answer) {
        expectYesNo("Make New Grading Sheet", "Are you sure you want to create a new grade sheet?",
                    answer);
    }
    void expectReloaded() {
        EXPECT_FALSE(state.isDirty);
        EXPECT_TRUE(state.reloadForNew);
        ASSERT_FALSE(window.calls.empty());
        EXPECT_EQ(window.calls.back(), "reload");
    }
};

TEST_F(New, DeclinedChangesNothing) {
    workOnA();
    expectNewQuestion(Answer::No);
    mnuNew(program);
    expectStillDirtyAt(aFile);
    EXPECT_FALSE(state.reloadForNew);
    EXPECT_TRUE(window.calls.empty());
}

TEST_F(New, WithoutChangesAsksOnlyTheFirstQuestionAndKeepsTheSheet) {
    workOnA();
    state.isDirty = false;
    expectNewQuestion(Answer::Yes);
    mnuNew(program);
    expectReloaded();
    EXPECT_EQ(contentOf(sheet), sampleContent());
    EXPECT_EQ(state.currentPath, aFile);
    EXPECT_EQ(bytesOn(aFile), hex("01"));
}

TEST_F(New, SavesTheChangesWhenAsked) {
    workOnA();
    expectNewQuestion(Answer::Yes);
    expectSaveQuestion(Answer::Yes);
    mnuNew(program);
    EXPECT_EQ(bytesOn(aFile), sampleFile());
    expectReloaded();
}

TEST_F(New, DiscardsTheChangesWhenAsked) {
    workOnA();
    expectNewQuestion(Answer::Yes);
    expectSaveQuestion(Answer::No);
    mnuNew(program);
    EXPECT_EQ(bytesOn(aFile), hex("01"));
    expectReloaded();
}

TEST_F(New, IsNotStoppedByACanceledSaveDialog) {
    state.isDirty = true;
    expectNewQuestion(Answer::Yes);
    expectSaveQuestion(Answer::Yes);
    expectSaveDialog(std::nullopt);
    mnuNew(program);
    EXPECT_TRUE(files.files.empty());
    expectReloaded();
}

TEST_F(New, ThatGoesBackToTheSheetLeavesEverything) {
    workOnA();
    files.readOnly = true;
    expectNewQuestion(Answer::Yes);
    expectSaveQuestion(Answer::Yes);
    dialogs.expectMessage("Quorvel",
                          "The grade sheet could not be saved anywhere.  Do you want to go back to "
                          "it?",
                          Icon::Critical, Buttons::YesNo, Answer::Yes);
    mnuNew(program);
    expectStillDirtyAt(aFile);
    EXPECT_FALSE(state.reloadForNew);
    EXPECT_TRUE(window.calls.empty());
}

TEST_F(New, PutsASheetThatCannotBeSavedIntoTheGradesFolder) {
    workOnA();
    state.currentPath = "/stick/a.qrv";
    disk.protectedFolders.insert("/stick");
    expectNewQuestion(Answer::Yes);
    expectSaveQuestion(Answer::Yes);
    mnuNew(program);
    EXPECT_EQ(file("Grades/Recovered.qrv"), sampleFile());
    expectReloaded();
}

using Exit = FileCommands;

TEST_F(Exit, DeclinedChangesNothing) {
    expectYesNo("Exit Check", "Are you sure you want to exit?", Answer::No);
    mnuExit(program);
    EXPECT_TRUE(window.calls.empty());
}

TEST_F(Exit, ThatGoesBackToTheSheetDoesNotEndTheProgram) {
    window.closes = false;
    expectYesNo("Exit Check", "Are you sure you want to exit?", Answer::Yes);
    mnuExit(program);
    EXPECT_EQ(window.calls, Calls{"close"});
}

TEST_F(Exit, ClosesTheWindowAndThenEndsTheProgram) {
    workOnA();
    expectYesNo("Exit Check", "Are you sure you want to exit?", Answer::Yes);
    mnuExit(program);
    EXPECT_EQ(window.calls, (Calls{"close", "endProgram"}));
    EXPECT_TRUE(state.isDirty);
}

class Closing : public FileCommands {
  protected:
    void losePlace() {
        state.isDirty = true;
        state.saveMode = SaveMode::Save;
        state.currentPath = "/stick/a.qrv";
        disk.protectedFolders.insert("/stick");
    }
    /// Closing asks and is to save a sheet whose place cannot be written any more.
    void closeWithLostPlace() {
        losePlace();
        expectSaveQuestion(Answer::Yes);
        mayGoOn = offerToSave(program);
    }
    /// The same where nothing else can be written either.
    void closeWithoutAnyPlace(Answer goBack) {
        losePlace();
        expectSaveQuestion(Answer::Yes);
        expectLastQuestion(goBack);
        mayGoOn = offerToSave(program);
    }
    void expectLastQuestion(Answer answer) {
        dialogs.expectMessage(
            "Quorvel",
            "The grade sheet could not be saved anywhere.  Do you want to go back "
            "to it?",
            Icon::Critical, Buttons::YesNo, answer);
    }
    void expectRecoveredOnlyIn(const std::filesystem::path& folder) {
        EXPECT_TRUE(mayGoOn);
        EXPECT_EQ(bytesOn(folder / "Recovered.qrv"), sampleFile());
        EXPECT_EQ(std::ranges::count(files.files, sampleFile(),
                                     &std::map<std::filesystem::path, Bytes>::value_type::second),
                  1);
    }

    bool mayGoOn = false;
};

TEST_F(Closing, ASavedSheetAsksNothing) {
    workOnA();
    state.isDirty = false;
    offerToSave(program);
    EXPECT_EQ(bytesOn(aFile), hex("01"));
}

TEST_F(Closing, AnUnsavedSheetIsSavedWhenAsked) {
    workOnA();
    expectSaveQuestion(Answer::Yes);
    offerToSave(program);
    EXPECT_EQ(bytesOn(aFile), sampleFile());
    EXPECT_FALSE(file("Grades/Recovered.qrv"));
}

TEST_F(Closing, AnUnsavedSheetIsDiscardedWhenAsked) {
    workOnA();
    expectSaveQuestion(Answer::No);
    offerToSave(program);
    EXPECT_EQ(bytesOn(aFile), hex("01"));
    EXPECT_FALSE(file("Grades/Recovered.qrv"));
}

TEST_F(Closing, ACanceledDialogIsNoFailure) {
    state.isDirty = true;
    expectSaveQuestion(Answer::Yes);
    expectSaveDialog(std::nullopt);
    offerToSave(program);
    EXPECT_TRUE(files.files.empty());
}

TEST_F(Closing, ASheetThatCannotBeSavedIsRecovered) {
    closeWithLostPlace();
    EXPECT_EQ(file("Grades/Recovered.qrv"), sampleFile());
    EXPECT_TRUE(files.folders.contains(grades));
    EXPECT_TRUE(state.isDirty);
    EXPECT_TRUE(window.calls.empty());
}

TEST_F(Closing, ARecoveredSheetIsNeverOverwritten) {
    closeWithLostPlace();
    files.files[grades / "Recovered.qrv"] = hex("01");
    state.saveMode = SaveMode::Save;
    closeWithLostPlace();
    closeWithLostPlace();
    EXPECT_EQ(file("Grades/Recovered.qrv"), hex("01"));
    EXPECT_EQ(file("Grades/Recovered 2.qrv"), sampleFile());
    EXPECT_EQ(file("Grades/Recovered 3.qrv"), sampleFile());
}

TEST_F(Closing, ASheetThatTheGradesFolderRefusesIsRecoveredInTheNextPlace) {
    disk.protectedFolders.insert(grades);
    closeWithLostPlace();
    expectRecoveredOnlyIn("/user/Documents");
    files.files.clear();
    disk.protectedFolders.insert("/user/Documents");
    closeWithLostPlace();
    expectRecoveredOnlyIn("/user/local");
    files.files.clear();
    disk.protectedFolders.insert("/user/local");
    closeWithLostPlace();
    expectRecoveredOnlyIn("/temporary");
}

TEST_F(Closing, WhereNothingCanBeWrittenAtAllTheUserMayGoBackToTheSheet) {
    files.readOnly = true;
    closeWithoutAnyPlace(Answer::Yes);
    EXPECT_FALSE(mayGoOn);
    expectStillDirtyAt("/stick/a.qrv");
    EXPECT_EQ(state.saveMode, SaveMode::SaveAs);
    EXPECT_EQ(contentOf(sheet), sampleContent());
}

TEST_F(Closing, WhereNothingCanBeWrittenAtAllTheUserMayGoOn) {
    files.readOnly = true;
    closeWithoutAnyPlace(Answer::No);
    EXPECT_TRUE(mayGoOn);
    EXPECT_TRUE(files.files.empty());
}

TEST_F(Closing, AnyFailureLeavesTheOldFileAndARecoveredSheetOrTheNewFile) {
    workOnA();
    expectSaveQuestion(Answer::Yes);
    offerToSave(program);
    const int operations = disk.operations();
    for (int operation = 1; operation <= operations; ++operation) {
        files.files.clear();
        workOnA();
        disk.breakAt(operation, FaultyFiles::Fault::Fail);
        expectSaveQuestion(Answer::Yes);
        offerToSave(program);
        const bool saved = bytesOn(aFile) == sampleFile();
        EXPECT_TRUE(saved || bytesOn(aFile) == hex("01")) << operation;
        EXPECT_EQ(file("Grades/Recovered.qrv").has_value(), !saved) << operation;
        if (!saved) {
            EXPECT_EQ(file("Grades/Recovered.qrv"), sampleFile()) << operation;
        }
    }
}

}  // namespace
}  // namespace quorvel
