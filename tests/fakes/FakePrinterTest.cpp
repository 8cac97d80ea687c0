#include "core/Errors.h"
#include "tests/fakes/FakePrinter.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

const PrintFont courier{"Courier New", 10};
const PrintJobSettings sideways{.title = "Job", .orientation = Orientation::Landscape};
constexpr int margin = FakePrinter::margin;

TEST(FakePrinter, MeasuresAreThoseOfThePrintQueue) {
    FakePrinter printer;
    const PageSize upright = printer.startJob({.title = "Job"}).printable;
    EXPECT_EQ(upright.width, 2550);
    EXPECT_EQ(upright.height, 3300);
    const FontMeasure usual = printer.selectFont(courier);
    EXPECT_EQ(usual.averageCharacterWidth, 25);
    EXPECT_EQ(usual.lineHeight, 47);
    const FontMeasure chart = printer.selectFont({"Courier New", 9.75F});
    EXPECT_EQ(chart.averageCharacterWidth, 25);
    EXPECT_EQ(chart.lineHeight, 46);
    const FontMeasure narrow = printer.selectFont({"Courier New", 9.75F}, 23);
    EXPECT_EQ(narrow.averageCharacterWidth, 23);
    EXPECT_EQ(narrow.lineHeight, 46);
    EXPECT_EQ(printer.textWidth("four"), 92);
    printer.cancelJob();
    EXPECT_EQ(printer.startJob(sideways).printable.width, 3300);
}

TEST(FakePrinter, TextStandsInItsColumnAndLine) {
    FakePrinter printer;
    printer.startJob({.title = "Job"});
    printer.selectFont(courier);
    printer.printText(margin, margin, "Name   ");
    printer.printText(margin + 25 * 9, margin, "Total");
    printer.printText(margin + 25 * 2, margin + 47 * 3, "x");
    printer.startPage();
    printer.printText(margin, margin + 47, "second");
    printer.endJob();
    ASSERT_EQ(printer.jobs.size(), 1U);
    const std::vector<std::vector<std::string>> expected{{"Name     Total", "", "", "  x"},
                                                         {"", "second"}};
    EXPECT_EQ(printer.jobs[0].pages, expected);
    EXPECT_EQ(printer.jobs[0].title, "Job");
    EXPECT_EQ(printer.jobs[0].fonts, std::vector<PrintFont>{courier});
}

TEST(FakePrinter, LinesThatStandCloserAreStillLines) {
    FakePrinter printer;
    printer.startJob(sideways);
    printer.selectFont(courier, 20);
    for (int line = 0; line < 4; ++line)
        printer.printText(margin + 20 * line, margin + 40 * line, "x");
    printer.endJob();
    const std::vector<std::vector<std::string>> expected{{"x", " x", "  x", "   x"}};
    EXPECT_EQ(printer.jobs[0].pages, expected);
    EXPECT_EQ(printer.jobs[0].orientation, Orientation::Landscape);
}

TEST(FakePrinter, WithoutAPrinterNoJobStarts) {
    FakePrinter printer;
    printer.state = FakePrinter::State::None;
    EXPECT_THROW(printer.startJob({.title = "Job"}), PrinterError);
    printer.cancelJob();
    EXPECT_EQ(printer.cancelledJobs, 0);
}

TEST(FakePrinter, AJobThatFailsOrIsCancelledDoesNotComeOut) {
    FakePrinter printer;
    printer.state = FakePrinter::State::Fails;
    printer.startJob({.title = "Job"});
    printer.selectFont(courier);
    EXPECT_THROW(printer.printText(0, 0, "x"), PrinterError);
    printer.cancelJob();
    EXPECT_TRUE(printer.jobs.empty());
    EXPECT_EQ(printer.cancelledJobs, 1);
}

TEST(FakePrinter, NothingIsPrintedWithoutAJob) {
    FakePrinter printer;
    EXPECT_THROW(printer.selectFont(courier), std::logic_error);
    EXPECT_THROW(printer.printText(0, 0, "x"), std::logic_error);
    EXPECT_THROW(printer.endJob(), std::logic_error);
    printer.startJob({.title = "Job"});
    EXPECT_THROW(printer.startJob({.title = "Job"}), std::logic_error);
}

}  // namespace
}  // namespace quorvel
