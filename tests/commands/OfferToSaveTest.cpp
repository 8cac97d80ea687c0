#include <algorithm>
#include <filesystem>
#include <map>
#include <optional>

#include "commands/FileCommands.h"
#include "tests/fakes/FileCommandsFixture.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

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

class ClosingUnderFaults : public Closing {
  protected:
    /// Closing is to save; operation number `first` fails, and number `second` of those that are
    /// left (0: none).
    void closeWith(FaultyFiles::Fault fault, int first, int second = 0) {
        files.files.clear();
        workOnA();
        disk.breakAt(second, fault);
        above.breakAt(first, fault);
        expectSaveQuestion(Answer::Yes);
        mayGoOn = offerToSave(programAbove);
    }
    bool isRecovered() {
        for (const auto& folder :
             {grades, state.places.documents, state.places.localData, state.places.temporary})
            if (bytesOn(folder / "Recovered.qrv") == sampleFile()) return true;
        return false;
    }
    void expectKept() {
        const bool saved = bytesOn(aFile) == sampleFile();
        EXPECT_TRUE(saved || bytesOn(aFile) == hex("01"));
        EXPECT_EQ(isRecovered(), !saved);
        EXPECT_EQ(state.isDirty, !saved);
        EXPECT_TRUE(mayGoOn);
    }

    FaultyFiles above{disk};
    Ports portsAbove{dialogs, above, printer, canvas, clock, shell};
    CommandContext programAbove{sheet, state, window, portsAbove};
};

TEST_F(ClosingUnderFaults, AnyFailureLeavesTheOldFileAndARecoveredSheetOrTheNewFile) {
    for (const auto fault : {FaultyFiles::Fault::Fail, FaultyFiles::Fault::Shorten}) {
        closeWith(fault, 0);
        const int operations = above.operations();
        for (int operation = 1; operation <= operations; ++operation) {
            closeWith(fault, operation);
            SCOPED_TRACE(operation);
            expectKept();
            EXPECT_EQ(file("Grades/Recovered.qrv").has_value(), isRecovered());
        }
    }
}

TEST_F(ClosingUnderFaults, AnyTwoFailuresLeaveTheSheetWholeSomewhere) {
    for (const auto fault : {FaultyFiles::Fault::Fail, FaultyFiles::Fault::Shorten}) {
        closeWith(fault, 0);
        const int operations = above.operations();
        for (int first = 1; first <= operations; ++first) {
            closeWith(fault, first);
            const int left = disk.operations();
            for (int second = 1; second <= left; ++second) {
                closeWith(fault, first, second);
                SCOPED_TRACE(testing::Message() << first << " and " << second);
                expectKept();
                ASSERT_FALSE(HasFailure());
            }
        }
    }
}

}  // namespace
}  // namespace quorvel
