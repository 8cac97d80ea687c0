#include <optional>

#include "commands/FileCommands.h"
#include "tests/fakes/FileCommandsFixture.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

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

}  // namespace
}  // namespace quorvel
