#include "WindowTest.h"

namespace quorvel {

class ClassFigures : public WindowTest {
  protected:
    static constexpr int shift = 150;

    std::string earned(int row) const {
        return shown(Surface::Grid, 306 + shift, canvas_places::rowTop(row), 4);
    }
    std::string possible(int row) const {
        return shown(Surface::Grid, 344 + shift, canvas_places::rowTop(row), 4);
    }
    std::string percentage(int row) const {
        return shown(Surface::Grid, 378 + shift, canvas_places::rowTop(row), 5);
    }
    std::string grade(int row) const {
        return shown(Surface::Grid, 420 + shift, canvas_places::rowTop(row), 1);
    }
};

TEST_F(ClassFigures, EachStudentsResultsStandAtTheEndOfTheRow) {
    fill(2, 2);
    enter(0, 0, "9");
    enter(0, 1, "10");
    enter(1, 0, "10");
    enter(1, 1, "10");
    EXPECT_EQ(earned(0), "  19");
    EXPECT_EQ(possible(0), "  20");
    EXPECT_EQ(percentage(0), " 95  ");
    EXPECT_EQ(grade(0), "A");
    EXPECT_EQ(percentage(1), "100  ");
    EXPECT_EQ(percentage(2), "     ");
    EXPECT_EQ(grade(2), " ");
}

TEST_F(ClassFigures, ATenthOfAPercentStandsBehindTheDecimalPoint) {
    fill(1, 3);
    enter(0, 0, "10");
    enter(0, 1, "10");
    EXPECT_EQ(percentage(0), " 66.6");
    EXPECT_EQ(grade(0), "E");
}

TEST_F(ClassFigures, RowsOfRemovedStudentsBecomeBlank) {
    fill(1, 3);
    enter(0, 0, "10");
    ASSERT_EQ(percentage(0), " 33.3");
    dialogs.expectPrompt("Remove Student",
                         "Please enter the student number that you wish to remove.", "", "1");
    form.chooseMenu(menuItemIndex("mnuRemoveS"));
    EXPECT_EQ(percentage(0), "     ");
    EXPECT_EQ(earned(0), "    ");
    EXPECT_EQ(grade(0), " ");
}

TEST_F(ClassFigures, RanksReplaceRowNumbersOnDemand) {
    fill(3, 1);
    enter(1, 0, "10");
    form.lblSN_Click();
    EXPECT_EQ(form.controls().lblSN, (Label{"SR", Ground::ChangedHeading}));
    EXPECT_EQ(form.controls().txtSN.text, "2\r\n1\r\n2");
    form.lblSN_Click();
    EXPECT_EQ(form.controls().txtSN.text, "1\r\n2\r\n3");
}

TEST_F(ClassFigures, AssignmentAveragesCountNumericScoresOnlyAndAreCut) {
    fill(3, 1);
    enter(0, 0, "10");
    enter(1, 0, "9");
    enter(2, 0, "e");
    EXPECT_EQ(shown(Surface::Bottom, 3, 2, 3), "  9");
    EXPECT_EQ(shown(Surface::Bottom, 3, 16, 3), " 95");
    EXPECT_EQ(shown(Surface::Bottom, 33, 2, 3), "   ");
}

TEST_F(ClassFigures, TheClassAverageStandsBelowWithItsLetter) {
    EXPECT_EQ(form.controls().lblClassAvg.caption, "Class Average:");
    fill(2, 3);
    enter(0, 0, "10");
    EXPECT_EQ(form.controls().lblClassAvg.caption, "Class Average: 16.6%");
    EXPECT_EQ(shown(Surface::Bottom, 3, 30, 5), " 16.6");
    EXPECT_EQ(shown(Surface::Bottom, 51, 30, 1), "F");
}

TEST_F(ClassFigures, WithoutStudentsTheClassAverageStaysAsItWas) {
    fill(1, 1);
    enter(0, 0, "10");
    dialogs.expectPrompt("Remove Student",
                         "Please enter the student number that you wish to remove.", "", "1");
    form.chooseMenu(menuItemIndex("mnuRemoveS"));
    EXPECT_EQ(form.controls().lblClassAvg.caption, "Class Average: 100%");
    EXPECT_EQ(shown(Surface::Bottom, 3, 30, 5), "100  ");
}

}  // namespace quorvel
