#include "reports/PrintJob.h"
#include "tests/reports/RecordingPrinter.h"

#include <gtest/gtest.h>

namespace quorvel {

namespace {

const PrintFont font{"Courier New", 10};

class PrintJobTest : public testing::Test {
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

TEST_F(PrintJobTest, TextStartsInItsColumn) {
    PrintJob job(printer, {.title = "Job"}, font);
    job.text("Total: ").at(12, "17").at(20, "/").endLine();
    job.finish();
    EXPECT_EQ(printed(), (Lines{"1:1,1 Total: ", "1:12,1 17", "1:20,1 /"}));
}

TEST_F(PrintJobTest, ATextThatEndsRightBeforeAColumnLeavesTheNextOneOnItsLine) {
    PrintJob job(printer, {.title = "Job"}, font);
    job.text("12345").at(6, "x").endLine();
    job.finish();
    EXPECT_EQ(printed(), (Lines{"1:1,1 12345", "1:6,1 x"}));
}

TEST_F(PrintJobTest, ATextThatReachesPastAColumnSendsTheRestToTheSameColumnOfTheNextLine) {
    PrintJob job(printer, {.title = "Job"}, font);
    job.text("123456").at(6, "x").at(9, "y").endLine();
    job.finish();
    EXPECT_EQ(printed(), (Lines{"1:1,1 123456", "1:6,2 x", "1:9,2 y"}));
}

TEST_F(PrintJobTest, AnEmptyTextAtAColumnMovesToTheNextLineLikeAnyOther) {
    PrintJob job(printer, {.title = "Job"}, font);
    job.text("123456").at(4, "").at(9, "y").endLine();
    job.finish();
    EXPECT_EQ(printed(), (Lines{"1:1,1 123456", "1:4,2 ", "1:9,2 y"}));
}

TEST_F(PrintJobTest, AProportionalFontNeverPrintsOneTextOverAnother) {
    printer.isProportional = true;
    PrintJob job(printer, {.title = "Job"}, font);
    job.text("WWWW").at(6, "x").endLine();  // 60 dots, column 6 starts at 50
    job.finish();
    EXPECT_EQ(printed(), (Lines{"1:1,1 WWWW", "1:6,2 x"}));
}

TEST_F(PrintJobTest, AFullPageGoesOnAtTheTopOfANewOne) {
    PrintJob job(printer, {.title = "Job"}, font);
    for (const char* text : {"a", "b", "c", "d", "e", "f"}) job.line(text);
    job.finish();
    EXPECT_EQ(printed(), (Lines{"1:1,1 a", "1:1,2 b", "1:1,3 c", "1:1,4 d", "1:1,5 e", "2:1,1 f"}));
    EXPECT_EQ(printer.calls, (Lines{"start Job", "page", "end"}));
}

TEST_F(PrintJobTest, APageThatIsJustFullIsNotFollowedByAnEmptyOne) {
    PrintJob job(printer, {.title = "Job"}, font);
    job.emptyLines(4);
    job.line("last");
    job.finish();
    EXPECT_EQ(printer.calls, (Lines{"start Job", "end"}));
}

TEST_F(PrintJobTest, ANewPageOnAnEmptyPageHasNoEffect) {
    PrintJob job(printer, {.title = "Job"}, font);
    job.newPage();
    job.newPage();
    job.line("a");
    job.newPage();
    job.newPage();
    job.line("b");
    job.finish();
    EXPECT_EQ(printed(), (Lines{"1:1,1 a", "2:1,1 b"}));
    EXPECT_EQ(printer.calls, (Lines{"start Job", "page", "end"}));
}

TEST_F(PrintJobTest, ALineWiderThanThePageIsPrintedWithNarrowerCharactersAndTheNextOneIsNot) {
    PrintJob job(printer, {.title = "Job"}, font);
    job.text(std::string(30, 'x')).at(31, std::string(10, 'y')).endLine();
    job.line(std::string(30, 'z'));
    job.finish();
    ASSERT_EQ(printer.pieces.size(), 3U);
    EXPECT_EQ(printer.pieces[0].characterWidth, 7);
    EXPECT_EQ(printer.pieces[1].left, 30 * 7);
    EXPECT_EQ(printer.pieces[1].right, 40 * 7);
    EXPECT_EQ(printer.pieces[2].characterWidth, 10);
    EXPECT_EQ(printer.pieces[2].right, 300);
    EXPECT_EQ(printer.pieces[2].top, RecordingPrinter::lineHeight);
}

TEST_F(PrintJobTest, AWideLineInAProportionalFontFitsThePageAndKeepsItsPiecesApart) {
    printer.isProportional = true;
    PrintJob job(printer, {.title = "Job"}, font);
    job.text("WWWWWWWWWW").at(16, "WWWWWWWWWW").at(31, "WWWWW").endLine();
    job.finish();
    ASSERT_EQ(printer.pieces.size(), 3U);
    EXPECT_LE(printer.pieces[0].right, printer.pieces[1].left);
    EXPECT_LE(printer.pieces[1].right, printer.pieces[2].left);
    EXPECT_LE(printer.pieces[2].right, 300);
}

TEST_F(PrintJobTest, ALineThatNoWidthMakesFitIsPrintedAllTheSame) {
    PrintJob job(printer, {.title = "Job"}, font);
    job.line(std::string(500, 'x'));
    job.finish();
    EXPECT_EQ(printer.pieces.at(0).characterWidth, 1);
}

TEST_F(PrintJobTest, AFittedPageIsAsNarrowAndAsCloseAsItsLinesNeed) {
    PrintJob job(printer, {.title = "Job", .orientation = Orientation::Landscape}, font);
    job.line("before");
    job.beginFittedPage({"Courier New", 9.75F}, 50);
    for (int line = 0; line < 6; ++line) job.line(std::string(50, 'x'));
    job.endFittedPage();
    job.finish();
    EXPECT_EQ(printer.orientation, Orientation::Landscape);
    EXPECT_EQ(printer.selections.back(),
              (std::pair<PrintFont, int>{{"Courier New", 9.75F}, 300 / 50}));
    EXPECT_EQ(printer.pieces.at(1).page, 2);
    EXPECT_EQ(printer.pieces.at(6).page, 2);
    EXPECT_EQ(printer.pieces.at(6).top, 5 * (100 / 6));
    EXPECT_EQ(printer.pieces.at(6).right, 300);
}

TEST_F(PrintJobTest, AFittedPageWithRoomKeepsTheFontsOwnSizes) {
    PrintJob job(printer, {.title = "Job", .orientation = Orientation::Landscape}, font);
    job.beginFittedPage(font, 30);
    job.line("a");
    job.line("b");
    job.endFittedPage();
    job.finish();
    EXPECT_EQ(printer.pieces.at(1).top, RecordingPrinter::lineHeight);
    EXPECT_EQ(printer.pieces.at(1).characterWidth, RecordingPrinter::ownCharacterWidth);
}

TEST_F(PrintJobTest, AFittedPageThatWouldBecomeUnreadableGoesOnOnANewOne) {
    PrintJob job(printer, {.title = "Job", .orientation = Orientation::Landscape}, font);
    job.beginFittedPage(font, 10);
    for (int line = 0; line < 8; ++line) job.line("x");
    job.endFittedPage();
    job.finish();
    EXPECT_EQ(printer.pieces.at(5).top, 5 * 15);
    EXPECT_EQ(printer.pieces.at(6).page, 2);
}

TEST_F(PrintJobTest, TextKeepsAQuarterOfAnInchFromThePapersEdgesAndAsManyLinesFit) {
    printer.paper = {.printable = {420, 320}, .unprintable = {}, .inch = {120, 80}};
    PrintJob job(printer, {.title = "Job"}, font);
    for (int line = 0; line < 16; ++line) job.line("x");
    job.text(std::string(42, 'x')).endLine();
    job.finish();
    const auto& pieces = printer.pieces;
    ASSERT_EQ(pieces.size(), 17U);
    EXPECT_EQ(pieces[0].left, 30);
    EXPECT_EQ(pieces[0].top, 20);
    EXPECT_EQ(pieces[15].page, 1) << "all 16 lines of 20 dots that the paper takes";
    EXPECT_EQ(pieces[15].top, 20 + 15 * 17);
    EXPECT_LE(pieces[15].top + 17, 320 - 20);
    EXPECT_EQ(pieces[16].page, 2);
    EXPECT_LE(pieces[16].right, 420 - 30) << "a line that the whole paper would just take";
}

TEST_F(PrintJobTest, APrintersOwnMarginsCount) {
    printer.paper = {.printable = {300, 100}, .unprintable = {40, 5, 29, 25}, .inch = {120, 80}};
    PrintJob job(printer, {.title = "Job"}, font);
    job.line(std::string(30, 'x'));
    job.finish();
    EXPECT_EQ(printer.pieces.at(0).left, 0);
    EXPECT_EQ(printer.pieces.at(0).top, 15);
    EXPECT_EQ(printer.pieces.at(0).characterWidth, 9) << "one dot is missing at the right";
}

TEST_F(PrintJobTest, AJobThatIsNotFinishedIsCancelled) {
    {
        PrintJob job(printer, {.title = "Job"}, font);
        job.line("a");
    }
    EXPECT_EQ(printer.calls, (Lines{"start Job", "cancel"}));
}

}  // namespace

}  // namespace quorvel
