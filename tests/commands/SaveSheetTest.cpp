#include <optional>

#include "commands/FileCommands.h"
#include "tests/fakes/FileCommandsFixture.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

using Fault = FaultyFiles::Fault;

using Save = FileCommands;

TEST_F(Save, ASheetWithoutAFileAsksForAPlaceAndGoesThere) {
    state.isDirty = true;
    expectSaveDialog(aFile);
    mnuSave(program);
    EXPECT_EQ(bytesOn(aFile), sampleFile());
    EXPECT_EQ(state.currentPath, aFile);
    EXPECT_EQ(state.sheetFileName, "a.qrv");
    EXPECT_EQ(state.saveMode, SaveMode::Save);
    EXPECT_FALSE(state.isDirty);
    EXPECT_EQ(window.calls, Calls{"setCaption a.qrv"});
    EXPECT_EQ(state.recentFiles[0], "\\Quorvel\\Grades\\a.qrv");
    EXPECT_EQ(firstBytes(*file("LS.qrv"), 128), textRecord("\\Quorvel\\Grades\\a.qrv"));
}

TEST_F(Save, TheSecondTimeNothingIsAsked) {
    workOnA();
    mnuSave(program);
    mnuSave(program);
    EXPECT_EQ(bytesOn(aFile), sampleFile());
    EXPECT_FALSE(state.isDirty);
    EXPECT_EQ(state.mnuPFile[0].caption, "\\Quorvel\\Grades\\a.qrv");
    EXPECT_EQ(state.mnuPFile[1].caption, "");
}

TEST_F(Save, ACanceledDialogChangesNothing) {
    state.isDirty = true;
    expectSaveDialog(std::nullopt);
    mnuSave(program);
    expectStillDirtyAt({});
    EXPECT_EQ(state.saveMode, SaveMode::SaveAs);
    EXPECT_TRUE(files.files.empty());
    EXPECT_TRUE(window.calls.empty());
    EXPECT_EQ(state.mnuPFile[0].caption, "");
}

TEST_F(Save, APathThatWasClearedIsAskedForAgain) {
    workOnA();
    state.currentPath.clear();
    expectSaveDialog(bFile);
    mnuSave(program);
    EXPECT_EQ(bytesOn(aFile), hex("01"));
    EXPECT_EQ(bytesOn(bFile), sampleFile());
}

TEST_F(Save, WhileTheSheetNeedsAPlaceTheOldPathIsNotUsed) {
    workOnA();
    state.saveMode = SaveMode::SaveAs;
    expectSaveDialog(bFile);
    mnuSave(program);
    EXPECT_EQ(bytesOn(aFile), hex("01"));
    EXPECT_EQ(state.currentPath, bFile);
}

TEST_F(Save, WhileTheSheetNeedsAPlaceACanceledDialogKeepsTheNeedAndTheOldPath) {
    workOnA();
    state.saveMode = SaveMode::SaveAs;
    expectSaveDialog(std::nullopt);
    mnuSave(program);
    expectStillDirtyAt(aFile);
    EXPECT_EQ(state.saveMode, SaveMode::SaveAs);
}

TEST_F(Save, DoesNotRedraw) {
    workOnA();
    mnuSave(program);
    EXPECT_EQ(window.calls, Calls{"setCaption a.qrv"});
}

TEST_F(Save, KeepsTheStaleRecordsOfALongerSheet) {
    workOnA();
    files.files[aFile] = Bytes(30 * 128, std::byte{0xAB});
    mnuSave(program);
    EXPECT_EQ(bytesOn(aFile), sampleFile() + Bytes(11 * 128, std::byte{0xAB}));
}

class ChangedBySomebodyElse : public FileCommands {
  protected:
    /// Opens a.qrv, which somebody else then writes.
    ChangedBySomebodyElse() {
        files.files[aFile] = sampleFile();
        expectOpenDialog(aFile);
        mnuOpen(program);
        window.calls.clear();
    }
    void writeAsSomebodyElse() { files.files[aFile] = sampleFile(0xCC); }
};

TEST_F(ChangedBySomebodyElse, AFileAsItWasLoadedIsSavedWithoutAQuestion) {
    mnuSave(program);
    mnuSave(program);
    EXPECT_EQ(bytesOn(aFile), sampleFile());
}

TEST_F(ChangedBySomebodyElse, TheNextSaveAsksForAPlace) {
    writeAsSomebodyElse();
    state.isDirty = true;
    expectSaveDialog(std::nullopt);
    mnuSave(program);
    expectStillDirtyAt(aFile);
    EXPECT_EQ(bytesOn(aFile), sampleFile(0xCC));

    expectSaveDialog(bFile);
    mnuSave(program);
    EXPECT_EQ(bytesOn(aFile), sampleFile(0xCC));
    EXPECT_EQ(bytesOn(bFile), sampleFile());
    mnuSave(program);
    EXPECT_EQ(bytesOn(bFile), sampleFile());
}

TEST_F(ChangedBySomebodyElse, TheSamePlaceChosenAgainIsWritten) {
    writeAsSomebodyElse();
    expectSaveDialog(aFile);
    mnuSave(program);
    EXPECT_EQ(bytesOn(aFile), sampleFile());
    mnuSave(program);
}

TEST_F(ChangedBySomebodyElse, SinceItWasSavedHereCountsLikeSinceItWasLoaded) {
    mnuSave(program);
    writeAsSomebodyElse();
    expectSaveDialog(std::nullopt);
    mnuSave(program);
    EXPECT_EQ(bytesOn(aFile), sampleFile(0xCC));
}

TEST_F(ChangedBySomebodyElse, AFileThatIsGoneIsWrittenAgain) {
    files.files.erase(aFile);
    mnuSave(program);
    EXPECT_EQ(bytesOn(aFile), sampleFile());
}

TEST_F(ChangedBySomebodyElse, AFileThatThisRunNeitherLoadedNorSavedIsWritten) {
    expectOpenDialog(std::nullopt);
    mnuPFile(program, 1);
    putFile("True", hex("01"));
    mnuSave(program);
    EXPECT_EQ(file("True"), sampleFile());
}

using SaveAs = FileCommands;

TEST_F(SaveAs, AsksAndWritesToTheNewPlaceOnly) {
    workOnA();
    expectSaveDialog(bFile);
    mnuSaveAs(program);
    EXPECT_EQ(bytesOn(aFile), hex("01"));
    EXPECT_EQ(bytesOn(bFile), sampleFile());
    EXPECT_EQ(state.currentPath, bFile);
    EXPECT_EQ(state.saveMode, SaveMode::Save);
    EXPECT_FALSE(state.isDirty);
}

TEST_F(SaveAs, WhenCanceledTheNextSaveWritesTheOldFileWithoutAsking) {
    workOnA();
    expectSaveDialog(std::nullopt);
    mnuSaveAs(program);
    expectStillDirtyAt(aFile);
    EXPECT_EQ(bytesOn(aFile), hex("01"));
    EXPECT_EQ(state.saveMode, SaveMode::Save);
    mnuSave(program);
    EXPECT_EQ(bytesOn(aFile), sampleFile());
}

TEST_F(SaveAs, WhenCanceledForASheetWithoutAFileTheNextSaveAsks) {
    expectSaveDialog(std::nullopt);
    mnuSaveAs(program);
    expectSaveDialog(aFile);
    mnuSave(program);
    EXPECT_EQ(bytesOn(aFile), sampleFile());
}

using FailedSave = FileCommands;

TEST_F(FailedSave, LeavesEverythingUnsavedAndTheNextSaveAsks) {
    workOnA();
    disk.protectedFolders.insert(grades);
    mnuSave(program);
    expectStillDirtyAt(aFile);
    EXPECT_EQ(state.sheetFileName, "a.qrv");
    EXPECT_EQ(state.saveMode, SaveMode::SaveAs);
    EXPECT_TRUE(window.calls.empty());
    EXPECT_EQ(bytesOn(aFile), hex("01"));

    disk.protectedFolders.clear();
    expectSaveDialog(bFile);
    mnuSave(program);
    EXPECT_EQ(bytesOn(bFile), sampleFile());
    EXPECT_FALSE(state.isDirty);
}

TEST_F(FailedSave, AtANewPlaceKeepsTheOldPathAndName) {
    workOnA();
    disk.protectedFolders.insert("/stick");
    expectSaveDialog("/stick/b.qrv");
    mnuSaveAs(program);
    expectStillDirtyAt(aFile);
    EXPECT_EQ(state.sheetFileName, "a.qrv");
    EXPECT_EQ(state.saveMode, SaveMode::SaveAs);
    EXPECT_TRUE(window.calls.empty());
}

TEST_F(FailedSave, HasListedItsPlaceAlready) {
    disk.protectedFolders.insert("/stick");
    expectSaveDialog("/stick/b.qrv");
    mnuSave(program);
    EXPECT_EQ(state.mnuPFile[0].caption, "\\stick\\b.qrv");
    EXPECT_EQ(firstBytes(*file("LS.qrv"), 128), textRecord("\\stick\\b.qrv"));
}

TEST_F(FailedSave, DoesNotRunTheHooks) {
    workOnA();
    disk.protectedFolders.insert(grades);
    state.afterSaveAction = AfterSaveAction::Unload;
    state.exitAfterSave = true;
    mnuSave(program);
    EXPECT_TRUE(window.calls.empty());
}

class FailedOperation : public FileCommands {
  protected:
    /// Saves over an older, longer sheet; operation number `operation` fails (0: none).
    void save(int operation, Fault fault) {
        files.files.clear();
        workOnA();
        files.files[aFile] = old;
        disk.breakAt(operation, fault);
        mnuSave(program);
    }
    void expectOldOrNew(int operation) {
        const Bytes bytes = bytesOn(aFile);
        EXPECT_TRUE(bytes == old || bytes == renewed) << operation;
    }
    void expectToldWhich(int operation) {
        const bool isOld = bytesOn(aFile) == old;
        EXPECT_EQ(state.isDirty, isOld) << operation;
        EXPECT_EQ(state.saveMode, isOld ? SaveMode::SaveAs : SaveMode::Save) << operation;
        EXPECT_EQ(state.currentPath, aFile) << operation;
        EXPECT_EQ(window.calls.empty(), isOld) << operation;
        EXPECT_EQ(files.list(grades).size(), 1U) << operation;
    }
    void failEveryOperation() {
        save(0, Fault::Fail);
        ASSERT_EQ(bytesOn(aFile), renewed);
        const int operations = disk.operations();
        for (const Fault fault : {Fault::Fail, Fault::Shorten}) {
            for (int operation = 1; operation <= operations; ++operation) {
                window.calls.clear();
                save(operation, fault);
                expectOldOrNew(operation);
                expectToldWhich(operation);
            }
        }
    }

    const Bytes old = Bytes(25 * 128, std::byte{0xAB});
    const Bytes renewed = sampleFile() + Bytes(6 * 128, std::byte{0xAB});
};

TEST_F(FailedOperation, LeavesTheOldFileOrTheNewOneAndSaysWhich) {
    failEveryOperation();
}

TEST_F(FailedOperation, SaysTheSameOfAFileThatIsWrittenInPlace) {
    disk.held.insert(aFile);
    failEveryOperation();
}

TEST_F(FailedOperation, WithThePowerGoneLeavesTheOldFileOrTheNewOne) {
    save(0, Fault::PowerCut);
    const int operations = disk.operations();
    for (int operation = 1; operation <= operations; ++operation) {
        save(operation, Fault::PowerCut);
        expectOldOrNew(operation);
    }
}

using SaveHooks = FileCommands;

TEST_F(SaveHooks, UnloadClosesTheWindow) {
    workOnA();
    state.afterSaveAction = AfterSaveAction::Unload;
    mnuSave(program);
    EXPECT_EQ(window.calls, (Calls{"setCaption a.qrv", "close"}));
}

TEST_F(SaveHooks, ExitAfterSaveClosesTheWindow) {
    workOnA();
    state.exitAfterSave = true;
    mnuSave(program);
    EXPECT_EQ(window.calls, (Calls{"setCaption a.qrv", "close"}));
}

TEST_F(SaveHooks, EachOfThemClosesItSeparately) {
    workOnA();
    state.afterSaveAction = AfterSaveAction::Unload;
    state.exitAfterSave = true;
    mnuSave(program);
    EXPECT_EQ(window.calls, (Calls{"setCaption a.qrv", "close", "close"}));
}

TEST_F(SaveHooks, ACanceledSaveRunsNone) {
    state.afterSaveAction = AfterSaveAction::Unload;
    state.exitAfterSave = true;
    expectSaveDialog(std::nullopt);
    mnuSave(program);
    EXPECT_TRUE(window.calls.empty());
}

}  // namespace
}  // namespace quorvel
