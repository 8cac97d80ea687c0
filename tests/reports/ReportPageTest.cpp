#include "reports/ReportPage.h"
#include "tests/reports/RecordingPrinter.h"

#include <gtest/gtest.h>

namespace quorvel {

namespace {

const PrintFont font{"Courier New", 10};

class ReportPageTest : public testing::Test {
  protected:
    /// 30 characters by 5 lines.
    RecordingPrinter printer{{300, 100}};

    /// What was printed, piece by piece, as "page:column,line text".
    std::vector<std::string> printed() const {
        std::vector<std::string> result;
        for (const auto& piece : printer.pieces) {
            result.push_back(std::to_string(piece.page) + ":" +
                             std::to_string(piece.left / piece.characterWidth + 1) + "," +
                             std::to_string(piece.top / RecordingPrinter::lineHeight + 1) + " " +
                             piece.text);
        }
        return result;
    }
};

using Lines = std::vector<std::string>;

TEST_F(ReportPageTest, TextStartsInItsColumn) {
    ReportPage page(printer, "Job", Orientation::Portrait, font);
    page.text("Total: ").at(12, "17").at(20, "/").endLine();
    page.finish();
    EXPECT_EQ(printed(), (Lines{"1:1,1 Total: ", "1:12,1 17", "1:20,1 /"}));
}

TEST_F(ReportPageTest, ATextThatEndsRightBeforeAColumnLeavesTheNextOneOnItsLine) {
    ReportPage page(printer, "Job", Orientation::Portrait, font);
    page.text("12345").at(6, "x").endLine();
    page.finish();
    EXPECT_EQ(printed(), (Lines{"1:1,1 12345", "1:6,1 x"}));
}

TEST_F(ReportPageTest, ATextThatReachesPastAColumnSendsTheRestToTheSameColumnOfTheNextLine) {
    ReportPage page(printer, "Job", Orientation::Portrait, font);
    page.text("123456").at(6, "x").at(9, "y").endLine();
    page.finish();
    EXPECT_EQ(printed(), (Lines{"1:1,1 123456", "1:6,2 x", "1:9,2 y"}));
}

TEST_F(ReportPageTest, AnEmptyTextAtAColumnMovesToTheNextLineLikeAnyOther) {
    ReportPage page(printer, "Job", Orientation::Portrait, font);
    page.text("123456").at(4, "").at(9, "y").endLine();
    page.finish();
    EXPECT_EQ(printed(), (Lines{"1:1,1 123456", "1:4,2 ", "1:9,2 y"}));
}

TEST_F(ReportPageTest, AProportionalFontNeverPrintsOneTextOverAnother) {
    printer.isProportional = true;
    ReportPage page(printer, "Job", Orientation::Portrait, font);
    page.text("WWWW").at(6, "x").endLine();  // 60 dots, column 6 starts at 50
    page.finish();
    EXPECT_EQ(printed(), (Lines{"1:1,1 WWWW", "1:6,2 x"}));
}

TEST_F(ReportPageTest, AFullPageGoesOnAtTheTopOfANewOne) {
    ReportPage page(printer, "Job", Orientation::Portrait, font);
    for (const char* text : {"a", "b", "c", "d", "e", "f"}) page.line(text);
    page.finish();
    EXPECT_EQ(printed(), (Lines{"1:1,1 a", "1:1,2 b", "1:1,3 c", "1:1,4 d", "1:1,5 e", "2:1,1 f"}));
    EXPECT_EQ(printer.calls, (Lines{"start Job", "page", "end"}));
}

TEST_F(ReportPageTest, APageThatIsJustFullIsNotFollowedByAnEmptyOne) {
    ReportPage page(printer, "Job", Orientation::Portrait, font);
    page.emptyLines(4);
    page.line("last");
    page.finish();
    EXPECT_EQ(printer.calls, (Lines{"start Job", "end"}));
}

TEST_F(ReportPageTest, ANewPageOnAnEmptyPageHasNoEffect) {
    ReportPage page(printer, "Job", Orientation::Portrait, font);
    page.newPage();
    page.newPage();
    page.line("a");
    page.newPage();
    page.newPage();
    page.line("b");
    page.finish();
    EXPECT_EQ(printed(), (Lines{"1:1,1 a", "2:1,1 b"}));
    EXPECT_EQ(printer.calls, (Lines{"start Job", "page", "end"}));
}

TEST_F(ReportPageTest, ALineWiderThanThePageIsPrintedWithNarrowerCharactersAndTheNextOneIsNot) {
    ReportPage page(printer, "Job", Orientation::Portrait, font);
    page.text(std::string(30, 'x')).at(31, std::string(10, 'y')).endLine();
    page.line(std::string(30, 'z'));
    page.finish();
    ASSERT_EQ(printer.pieces.size(), 3U);
    EXPECT_EQ(printer.pieces[0].characterWidth, 7);
    EXPECT_EQ(printer.pieces[1].left, 30 * 7);
    EXPECT_EQ(printer.pieces[1].right, 40 * 7);
    EXPECT_EQ(printer.pieces[2].characterWidth, 10);
    EXPECT_EQ(printer.pieces[2].right, 300);
    EXPECT_EQ(printer.pieces[2].top, RecordingPrinter::lineHeight);
}

TEST_F(ReportPageTest, AWideLineInAProportionalFontFitsThePageAndKeepsItsPiecesApart) {
    printer.isProportional = true;
    ReportPage page(printer, "Job", Orientation::Portrait, font);
    page.text("WWWWWWWWWW").at(16, "WWWWWWWWWW").at(31, "WWWWW").endLine();
    page.finish();
    ASSERT_EQ(printer.pieces.size(), 3U);
    EXPECT_LE(printer.pieces[0].right, printer.pieces[1].left);
    EXPECT_LE(printer.pieces[1].right, printer.pieces[2].left);
    EXPECT_LE(printer.pieces[2].right, 300);
}

TEST_F(ReportPageTest, ALineThatNoWidthMakesFitIsPrintedAllTheSame) {
    ReportPage page(printer, "Job", Orientation::Portrait, font);
    page.line(std::string(500, 'x'));
    page.finish();
    EXPECT_EQ(printer.pieces.at(0).characterWidth, 1);
}

TEST_F(ReportPageTest, AFittedPageIsAsNarrowAndAsCloseAsItsLinesNeed) {
    ReportPage page(printer, "Job", Orientation::Landscape, font);
    page.line("before");
    page.beginFittedPage({"Courier New", 9.75F}, 50);
    for (int line = 0; line < 6; ++line) page.line(std::string(50, 'x'));
    page.endFittedPage();
    page.finish();
    EXPECT_EQ(printer.orientation, Orientation::Landscape);
    EXPECT_EQ(printer.selections.back(),
              (std::pair<PrintFont, int>{{"Courier New", 9.75F}, 300 / 50}));
    EXPECT_EQ(printer.pieces.at(1).page, 2);
    EXPECT_EQ(printer.pieces.at(6).page, 2);
    EXPECT_EQ(printer.pieces.at(6).top, 5 * (100 / 6));
    EXPECT_EQ(printer.pieces.at(6).right, 300);
}

TEST_F(ReportPageTest, AFittedPageWithRoomKeepsTheFontsOwnSizes) {
    ReportPage page(printer, "Job", Orientation::Landscape, font);
    page.beginFittedPage(font, 30);
    page.line("a");
    page.line("b");
    page.endFittedPage();
    page.finish();
    EXPECT_EQ(printer.pieces.at(1).top, RecordingPrinter::lineHeight);
    EXPECT_EQ(printer.pieces.at(1).characterWidth, RecordingPrinter::ownCharacterWidth);
}

TEST_F(ReportPageTest, AFittedPageThatWouldBecomeUnreadableGoesOnOnANewOne) {
    ReportPage page(printer, "Job", Orientation::Landscape, font);
    page.beginFittedPage(font, 10);
    for (int line = 0; line < 8; ++line) page.line("x");
    page.endFittedPage();
    page.finish();
    EXPECT_EQ(printer.pieces.at(5).top, 5 * 15);
    EXPECT_EQ(printer.pieces.at(6).page, 2);
}

TEST_F(ReportPageTest, AJobThatIsNotFinishedIsCancelled) {
    {
        ReportPage page(printer, "Job", Orientation::Portrait, font);
        page.line("a");
    }
    EXPECT_EQ(printer.calls, (Lines{"start Job", "cancel"}));
}

}  // namespace

}  // namespace quorvel
