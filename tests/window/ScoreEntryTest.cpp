#include "WindowTest.h"

namespace quorvel {

class ScoreEntry : public WindowTest {
  protected:
    bool opensAt(double x, double y) {
        form.Form_MouseDown(x, y);
        return form.controls().txtEnter.visible;
    }
    std::string stored(int assignment, int student) const {
        return form.sheet().score(assignment, student).text();
    }
};

TEST_F(ScoreEntry, TheAreaBeginsExactlyAtItsCorner) {
    fill(1, 1);
    EXPECT_TRUE(opensAt(150, 14));
    EXPECT_FALSE(opensAt(149.4, 14));
    EXPECT_FALSE(opensAt(149.6, 14));
    EXPECT_FALSE(opensAt(150, 13.9));
}

TEST_F(ScoreEntry, TheEditorStandsOverTheClickedCellWithItsTextSelected) {
    fill(2, 2);
    enter(1, 1, "8");
    clickCell(1, 1);
    const CellEditor& txtEnter = form.controls().txtEnter;
    EXPECT_EQ(txtEnter.left, 180);
    EXPECT_EQ(txtEnter.top, 28);
    EXPECT_EQ(txtEnter.text, "8");
    EXPECT_EQ(txtEnter.selectionStart, 0U);
    EXPECT_EQ(txtEnter.selectionLength, 1U);
    EXPECT_EQ(form.state().currentAssignment, 2);
    EXPECT_EQ(form.state().currentStudent, 2);
}

TEST_F(ScoreEntry, AClickBelowTheLastStudentClosesTheEditorAndOpensNothing) {
    fill(3, 1);
    clickCell(2, 0);
    EXPECT_TRUE(form.controls().txtEnter.visible);
    clickCell(3, 0);
    EXPECT_FALSE(form.controls().txtEnter.visible);
}

TEST_F(ScoreEntry, AClickBesideTheLastAssignmentIsAMissEvenInsideTheArea) {
    fill(1, 2);
    EXPECT_TRUE(opensAt(150 + 30 + 1, 20));
    EXPECT_FALSE(opensAt(150 + 60 + 1, 20));
}

TEST_F(ScoreEntry, WithMoreAssignmentsThanColumnsOnlyTheFirstTakeClicks) {
    fill(1, 16);
    EXPECT_TRUE(opensAt(589, 20));
    EXPECT_EQ(form.state().currentAssignment, 15);
    EXPECT_FALSE(opensAt(590, 20));
}

TEST_F(ScoreEntry, ClicksFollowTheScrollPositions) {
    fill(22, 17);
    form.scroll(&Controls::hsbA, 3);
    form.scroll(&Controls::vsbS, 2);
    clickCell(0, 0);
    EXPECT_EQ(form.state().currentAssignment, 3);
    EXPECT_EQ(form.state().currentStudent, 2);
}

TEST_F(ScoreEntry, WhatIsTypedIsNormalizedAndKeptAsText) {
    fill(1, 1);
    const std::pair<const char*, const char*> entries[] = {
        {"17", "17"},       {"e", "E"},   {"E", "E"},   {"", "0"},   {"12.5", "13"},
        {"12.49", "12.49"}, {"-3", "3"},  {"x", "0"},   {"EE", "0"}, {" 7", "7"},
        {"7.9", "8"},       {"1e5", "1"}, {"007", "7"}, {".5", "1"}, {"12 points", "12"}};
    for (const auto& [typed, expected] : entries) {
        enter(0, 0, typed);
        EXPECT_EQ(form.sheet().score(1, 1), Score::ofText(expected)) << typed;
    }
}

TEST_F(ScoreEntry, EnterHidesTheEditorAndStoresThroughTheLostFocus) {
    fill(1, 1);
    clickCell(0, 0);
    form.txtEnter_Change("9");
    EXPECT_EQ(stored(1, 1), "0");
    EXPECT_TRUE(form.txtEnter_KeyDown(key::enter, false));
    EXPECT_FALSE(form.controls().txtEnter.visible);
    EXPECT_EQ(stored(1, 1), "9");
    EXPECT_TRUE(form.state().isDirty);
}

TEST_F(ScoreEntry, OtherKeysAreLeftToTheEditor) {
    fill(1, 1);
    clickCell(0, 0);
    EXPECT_FALSE(form.txtEnter_KeyDown(key::escape, false));
    EXPECT_TRUE(form.controls().txtEnter.visible);
}

TEST_F(ScoreEntry, ScrollingStoresTheEntryAndHidesTheEditor) {
    fill(21, 1);
    clickCell(0, 0);
    form.txtEnter_Change("9");
    form.scroll(&Controls::vsbS, 2);
    EXPECT_FALSE(form.controls().txtEnter.visible);
    EXPECT_EQ(stored(1, 1), "9");
}

TEST_F(ScoreEntry, AMenuCommandEndsTheEntryFirst) {
    fill(1, 1);
    clickCell(0, 0);
    form.txtEnter_Change("9");
    dialogs.expectMessage("About the Quorvel", "Quorvel\r\nVersion 2.60", Icon::Information,
                          Buttons::Ok, Answer::Ok);
    dialogs.whileOpen([this] { EXPECT_EQ(stored(1, 1), "9"); });
    form.chooseMenu(menuItemIndex("mnuAbout"));
}

TEST_F(ScoreEntry, ClosingTheWindowStoresTheEntryFirst) {
    fill(1, 1);
    clickCell(0, 0);
    form.txtEnter_Change("9");
    dialogs.expectMessage("Save Current Grade Sheet?",
                          "Do you want to save the grade sheet you are currently working on?",
                          Icon::None, Buttons::YesNo, Answer::No);
    form.closeBox();
    EXPECT_EQ(stored(1, 1), "9");
    EXPECT_TRUE(form.hasEnded());
}

TEST_F(ScoreEntry, AnEntryIsCutToWhatARecordHolds) {
    fill(1, 1);
    clickCell(0, 0);
    form.txtEnter_Change(std::string(300, '7'));
    EXPECT_EQ(form.controls().txtEnter.text.size(), 124U);
}

}  // namespace quorvel
