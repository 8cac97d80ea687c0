#include <utility>

#include "WindowTest.h"

namespace quorvel {

/// Scores are entered without a mouse: F2 opens a cell, with Control held the arrow keys go on.
class KeyboardEntry : public WindowTest {
  protected:
    KeyboardEntry() { fill(45, 33); }

    bool pressInWindow(int keyCode) { return form.Form_KeyDown(keyCode, false); }
    bool goOn(int keyCode) { return form.txtEnter_KeyDown(keyCode, true); }

    /// The open cell, as its assignment and its student; nothing is open at 0, 0.
    std::pair<int, int> openCell() const {
        if (!form.controls().txtEnter.visible) return {0, 0};
        return {form.state().currentAssignment, form.state().currentStudent};
    }
    std::pair<int, int> editorPlace() const {
        return {form.controls().txtEnter.left, form.controls().txtEnter.top};
    }
};

using Cell = std::pair<int, int>;

TEST_F(KeyboardEntry, F2OpensTheFirstCellInSightLikeAClick) {
    form.scroll(&Controls::hsbA, 3);
    form.scroll(&Controls::vsbS, 5);
    EXPECT_TRUE(pressInWindow(key::f2));
    EXPECT_EQ(openCell(), Cell(3, 5));
    const auto place = editorPlace();
    clickCell(0, 0);
    EXPECT_EQ(openCell(), Cell(3, 5));
    EXPECT_EQ(editorPlace(), place);
}

TEST_F(KeyboardEntry, F2OpensTheCellAgainThatWasOpenLast) {
    enter(4, 2, "7");
    EXPECT_TRUE(pressInWindow(key::f2));
    EXPECT_EQ(openCell(), Cell(3, 5));
    EXPECT_EQ(form.controls().txtEnter.text, "7");
    EXPECT_EQ(form.controls().txtEnter.selectionLength, 1u);
}

TEST_F(KeyboardEntry, ACellThatIsOutOfSightIsNotOpenedAgain) {
    enter(0, 0, "7");
    form.scroll(&Controls::vsbS, 2);
    pressInWindow(key::f2);
    EXPECT_EQ(openCell(), Cell(1, 2));
}

TEST_F(KeyboardEntry, NorIsACellWhoseStudentWasRemoved) {
    form.scroll(&Controls::vsbS, 26);
    enter(19, 0, "7");
    dialogs.expectPrompt("Remove Student",
                         "Please enter the student number that you wish to remove.", "", "45");
    form.chooseMenu(menuItemIndex("mnuRemoveS"));
    pressInWindow(key::f2);
    EXPECT_EQ(openCell(), Cell(1, form.firstVisibleStudent()));
}

TEST_F(KeyboardEntry, ControlAndAnArrowStoreTheEntryAndOpenTheNextCell) {
    pressInWindow(key::f2);
    form.txtEnter_Change("9");
    EXPECT_TRUE(goOn(key::down));
    EXPECT_EQ(openCell(), Cell(1, 2));
    EXPECT_EQ(form.sheet().score(1, 1).text(), "9");
    EXPECT_TRUE(goOn(key::right));
    EXPECT_EQ(openCell(), Cell(2, 2));
    EXPECT_TRUE(goOn(key::up));
    EXPECT_EQ(openCell(), Cell(2, 1));
    EXPECT_TRUE(goOn(key::left));
    EXPECT_EQ(openCell(), Cell(1, 1));
    EXPECT_EQ(form.controls().txtEnter.text, "9");
}

TEST_F(KeyboardEntry, TheNextCellIsBroughtIntoSight) {
    pressInWindow(key::f2);
    for (int student = 2; student <= 21; ++student) goOn(key::down);
    for (int assignment = 2; assignment <= 16; ++assignment) goOn(key::right);
    EXPECT_EQ(openCell(), Cell(16, 21));
    EXPECT_EQ(form.firstVisibleStudent(), 2);
    EXPECT_EQ(form.firstVisibleAssignment(), 2);
    const auto lastInSight = editorPlace();
    form.scroll(&Controls::vsbS, 26);
    form.scroll(&Controls::hsbA, 19);
    pressInWindow(key::f2);
    for (int i = 0; i < 2; ++i) goOn(key::up);
    for (int i = 0; i < 2; ++i) goOn(key::left);
    EXPECT_EQ(openCell(), Cell(17, 24));
    EXPECT_EQ(form.firstVisibleStudent(), 24);
    EXPECT_EQ(form.firstVisibleAssignment(), 17);
    EXPECT_EQ(lastInSight, std::pair(150 + 14 * 30, 14 * 20));
}

TEST_F(KeyboardEntry, AtTheEdgeOfTheSheetTheEntryGoesOn) {
    pressInWindow(key::f2);
    form.txtEnter_Change("9");
    EXPECT_TRUE(goOn(key::up));
    EXPECT_TRUE(goOn(key::left));
    EXPECT_EQ(openCell(), Cell(1, 1));
    EXPECT_EQ(form.controls().txtEnter.text, "9");
    EXPECT_EQ(form.sheet().score(1, 1).text(), "0");
}

TEST_F(KeyboardEntry, WithoutControlArrowsBelongToTheEditor) {
    pressInWindow(key::f2);
    EXPECT_FALSE(form.txtEnter_KeyDown(key::down, false));
    EXPECT_FALSE(form.txtEnter_KeyDown(key::home, true));
    EXPECT_EQ(openCell(), Cell(1, 1));
}

TEST_F(KeyboardEntry, F3AndF4ChangeTheHeadings) {
    EXPECT_TRUE(pressInWindow(key::f3));
    EXPECT_TRUE(form.showsAliases());
    EXPECT_TRUE(pressInWindow(key::f4));
    EXPECT_EQ(form.controls().lblSN.caption, "SR");
    pressInWindow(key::f3);
    pressInWindow(key::f4);
    EXPECT_FALSE(form.showsAliases());
    EXPECT_EQ(form.controls().lblSN.caption, "#");
}

class KeyboardEntryWithoutCells : public WindowTest {};

TEST_F(KeyboardEntryWithoutCells, F2OpensNothing) {
    EXPECT_TRUE(form.Form_KeyDown(key::f2, false));
    EXPECT_FALSE(form.controls().txtEnter.visible);
    fill(2, 0);
    form.Form_KeyDown(key::f2, false);
    EXPECT_FALSE(form.controls().txtEnter.visible);
}

}  // namespace quorvel
