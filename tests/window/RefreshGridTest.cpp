#include "WindowTest.h"

namespace quorvel {

using RefreshGrid = WindowTest;

class RefreshGridOnASmallScreen : public WindowTest {
  protected:
    RefreshGridOnASmallScreen() : WindowTest({640, 480}) {}
};

TEST_F(RefreshGrid, AnEmptySheetHasEmptyRangesAndTextsAndBlankBands) {
    for (const ScrollBar* bar :
         {&form.controls().hsbA, &form.controls().vsbA, &form.controls().vsbS}) {
        EXPECT_EQ(bar->minimum(), 0);
        EXPECT_EQ(bar->maximum(), 0);
        EXPECT_EQ(bar->position(), 0);
    }
    EXPECT_EQ(form.controls().txtS.text, "");
    EXPECT_EQ(form.controls().txtSN.text, "");
    EXPECT_EQ(form.controls().lblAN.caption, "");
    for (int row = 0; row < visibleRows; ++row)
        for (int column = 0; column < 15; ++column) EXPECT_EQ(shownScore(row, column), "   ");
}

TEST_F(RefreshGrid, TwentyStudentsDoNotScrollTwentyOneDo) {
    fill(20, 0);
    EXPECT_EQ(form.controls().vsbS.minimum(), 1);
    EXPECT_EQ(form.controls().vsbS.maximum(), 1);
    fill(1, 0);
    EXPECT_EQ(form.controls().vsbS.maximum(), 2);
    form.scroll(&Controls::vsbS, 2);
    EXPECT_EQ(form.firstVisibleStudent(), 2);
    EXPECT_TRUE(form.controls().txtSN.text.starts_with("2\r\n"));
    EXPECT_TRUE(form.controls().txtSN.text.ends_with("\r\n21"));
}

TEST_F(RefreshGrid, ElevenAssignmentsDoNotScrollInTheWideLayout) {
    fill(1, 11);
    EXPECT_EQ(form.controls().hsbA.maximum(), 1);
    EXPECT_EQ(form.controls().vsbA.maximum(), 2);
}

TEST_F(RefreshGridOnASmallScreen, ElevenAssignmentsScrollOnce) {
    fill(1, 11);
    EXPECT_EQ(form.controls().hsbA.minimum(), 1);
    EXPECT_EQ(form.controls().hsbA.maximum(), 2);
    form.scroll(&Controls::hsbA, 2);
    EXPECT_EQ(shown(Surface::Grid, canvas_places::scoreLeft(9), canvas_places::headingTop, 3),
              " 11");
}

TEST_F(RefreshGrid, RemovingStudentsMovesTheScrollBarBackAndRefreshesInside) {
    fill(21, 0);
    form.scroll(&Controls::vsbS, 2);
    dialogs.expectPrompt("Remove Student",
                         "Please enter the student number that you wish to remove.", "", "21");
    form.chooseMenu(menuItemIndex("mnuRemoveS"));
    EXPECT_EQ(form.controls().vsbS.position(), 1);
    EXPECT_EQ(form.firstVisibleStudent(), 1);
    EXPECT_TRUE(form.controls().txtSN.text.starts_with("1\r\n"));
    EXPECT_TRUE(form.controls().txtS.text.ends_with("\r\n20"));
}

TEST_F(RefreshGrid, ScoresAreRightAlignedWithoutLeadingZeros) {
    fill(6, 1);
    enter(0, 0, "0");
    enter(1, 0, "5");
    enter(2, 0, "100");
    enter(3, 0, "e");
    enter(4, 0, "1000");
    enter(5, 0, "7.3");
    EXPECT_EQ(shownScore(0, 0), "  0");
    EXPECT_EQ(shownScore(1, 0), "  5");
    EXPECT_EQ(shownScore(2, 0), "100");
    EXPECT_EQ(shownScore(3, 0), "  E");
    EXPECT_EQ(shownScore(4, 0), "...");
    EXPECT_EQ(shownScore(5, 0), "  7");
    EXPECT_EQ(shownScore(6, 0), "   ");
}

TEST_F(RefreshGrid, RowsAlternateOnScreenWhateverTheScrollPosition) {
    using namespace canvas_places;
    fill(22, 1);
    for (const int position : {1, 2, 3}) {
        form.scroll(&Controls::vsbS, position);
        EXPECT_EQ(canvas.glyphAt(Surface::Grid, slotLeft(scoreLeft(0), 2), rowTop(0)),
                  glyph::digit(0, GlyphSet::Double));
        EXPECT_EQ(canvas.glyphAt(Surface::Grid, slotLeft(scoreLeft(0), 2), rowTop(1)),
                  glyph::digit(0, GlyphSet::Plain));
    }
}

TEST_F(RefreshGrid, TheNameHeadingTogglesAliasesAndNothingElse) {
    dialogs
        .expectPrompt("Add Student",
                      "What is the student's full name?\r\n"
                      "(Recommended Format: LastName, FirstName)",
                      "", "Featherstonehaugh, Algernon")
        .expectPrompt("Add Student", "What is the student's alias? (no more than 15 characters)",
                      "", "Algy");
    form.chooseMenu(menuItemIndex("mnuAddS"));
    EXPECT_EQ(form.controls().txtS.text, "Featherstonehau");
    form.lblStudent_Click();
    EXPECT_EQ(form.controls().lblStudent, (Label{"Student Alias", Ground::ChangedHeading}));
    EXPECT_EQ(form.controls().txtS.text, "Algy");
    EXPECT_EQ(form.controls().txtSN.text, "1");
    form.lblStudent_Click();
    EXPECT_EQ(form.controls().lblStudent, (Label{"Student Name", Ground::Heading}));
    EXPECT_EQ(form.controls().txtS.text, "Featherstonehau");
}

TEST_F(RefreshGrid, TheListFollowsItsScrollBar) {
    fill(0, 12);
    EXPECT_EQ(form.controls().vsbA.maximum(), 3);
    form.scroll(&Controls::vsbA, 3);
    EXPECT_TRUE(form.controls().lblAN.caption.starts_with("#3\r\n"));
    EXPECT_TRUE(form.controls().lblAN.caption.ends_with("\r\n#12"));
    EXPECT_TRUE(form.controls().txtAV.text.starts_with("10\r\n10"));
}

}  // namespace quorvel
