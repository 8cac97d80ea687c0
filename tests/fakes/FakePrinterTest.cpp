#include "core/Errors.h"
#include "tests/fakes/FakePrinter.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

const PrintFont courier{"Courier New", 10};

TEST(FakePrinter, MeasuresAreThoseOfThePrintQueue) {
    FakePrinter printer;
    const PageSize upright = printer.startJob("Job", Orientation::Portrait);
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
    EXPECT_EQ(printer.startJob("Job", Orientation::Landscape).width, 3300);
}

TEST(FakePrinter, TextStandsInItsColumnAndLine) {
    FakePrinter printer;
    printer.startJob("Job", Orientation::Portrait);
    printer.selectFont(courier);
    printer.printText(0, 0, "Name   ");
    printer.printText(25 * 9, 0, "Total");
    printer.printText(25 * 2, 47 * 3, "x");
    printer.startPage();
    printer.printText(0, 47, "second");
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
    printer.startJob("Job", Orientation::Landscape);
    printer.selectFont(courier, 20);
    for (int line = 0; line < 4; ++line) printer.printText(20 * line, 40 * line, "x");
    printer.endJob();
    const std::vector<std::vector<std::string>> expected{{"x", " x", "  x", "   x"}};
    EXPECT_EQ(printer.jobs[0].pages, expected);
    EXPECT_EQ(printer.jobs[0].orientation, Orientation::Landscape);
}

TEST(FakePrinter, WithoutAPrinterNoJobStarts) {
    FakePrinter printer;
    printer.state = FakePrinter::State::None;
    EXPECT_THROW(printer.startJob("Job", Orientation::Portrait), PrinterError);
    printer.cancelJob();
    EXPECT_EQ(printer.cancelledJobs, 0);
}

TEST(FakePrinter, AJobThatFailsOrIsCancelledDoesNotComeOut) {
    FakePrinter printer;
    printer.state = FakePrinter::State::Fails;
    printer.startJob("Job", Orientation::Portrait);
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
    printer.startJob("Job", Orientation::Portrait);
    EXPECT_THROW(printer.startJob("Job", Orientation::Portrait), std::logic_error);
}

}  // namespace
}  // namespace quorvel
