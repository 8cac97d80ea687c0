#include "reports/TextPrinter.h"

#include <gtest/gtest.h>

namespace quorvel {

namespace {

class TextPrinterTest : public testing::Test {
  protected:
    TextPrinter printer;
};

TEST_F(TextPrinterTest, PutsTextIntoItsColumnAndLine) {
    printer.startJob({.title = "Job"});
    printer.printText(4, 1, "five");
    printer.printText(0, 1, "one");
    printer.endJob();
    EXPECT_EQ(printer.text(), "\none five\n");
}

TEST_F(TextPrinterTest, LeavesOutBlanksAtLineEndsButNoEmptyLine) {
    printer.startJob({.title = "Job"});
    printer.printText(0, 0, "Total:   ");
    printer.printText(0, 1, "   ");
    printer.printText(0, 2, "");
    printer.endJob();
    EXPECT_EQ(printer.text(), "Total:\n\n\n");
}

TEST_F(TextPrinterTest, PutsAFormFeedDirectlyBeforeTheFirstLineOfEveryPageButTheFirst) {
    printer.startJob({.title = "Job"});
    printer.printText(0, 0, "one");
    printer.startPage();
    printer.printText(0, 0, "two");
    printer.startPage();
    printer.printText(0, 1, "three");
    printer.endJob();
    EXPECT_EQ(printer.text(), "one\n\ftwo\n\f\nthree\n");
    EXPECT_EQ(printer.pageCount(), 3);
}

TEST_F(TextPrinterTest, ACancelledJobLeavesNothing) {
    printer.startJob({.title = "Job"});
    printer.printText(0, 0, "one");
    printer.cancelJob();
    EXPECT_EQ(printer.text(), "");
    EXPECT_EQ(printer.pageCount(), 0);
}

TEST_F(TextPrinterTest, TabsAndBreaksInsideATextDoNotMoveWhatStandsBehindThem) {
    printer.startJob({.title = "Job"});
    printer.printText(0, 0, "a\tb\r\nc\fd\ve");
    printer.printText(10, 0, "f");
    printer.endJob();
    EXPECT_EQ(printer.text(), "a b  c d ef\n");
}

TEST_F(TextPrinterTest, RemembersTitleOrientationAndFonts) {
    printer.startJob({.title = "Class Report", .orientation = Orientation::Landscape});
    printer.selectFont({"Courier New", 9.75F});
    printer.endJob();
    EXPECT_EQ(printer.jobTitle(), "Class Report");
    EXPECT_EQ(printer.orientation(), Orientation::Landscape);
    EXPECT_EQ(printer.fonts(), (std::vector<PrintFont>{{"Courier New", 9.75F}}));
}

}  // namespace

}  // namespace quorvel
