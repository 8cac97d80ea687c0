#include <algorithm>
#include <sstream>

#include "tests/reports/RecordingPrinter.h"
#include "tests/reports/ReportsFixture.h"

#include <gtest/gtest.h>

namespace quorvel {

namespace {

class TeacherReportTest : public ReportsTest {};

TEST_F(TeacherReportTest, FortyOneStudentsGiveTwoSheetsTheLastStudentsFirst) {
    addStudents(41);
    const std::string text = print(ReportKind::Teacher);
    EXPECT_EQ(printer.pageCount(), 2);
    EXPECT_LT(text.find("|Student 41 "), text.find("|Student 1 "));
    EXPECT_LT(text.find("Page: 2"), text.find("Page: 1"));
}

TEST_F(TeacherReportTest, FortyStudentsAndTwentyAssignmentsAreOneSheet) {
    addStudents(40);
    for (int i = 0; i < 20; ++i) sheet.addAssignment("Quiz", 10);
    print(ReportKind::Teacher);
    EXPECT_EQ(printer.pageCount(), 1);
}

TEST_F(TeacherReportTest, SheetsAreNumberedByBlockThenGroup) {
    addStudents(81);
    for (int i = 0; i < 21; ++i) sheet.addAssignment("Quiz", 10);
    std::istringstream text(print(ReportKind::Teacher));
    std::vector<std::string> pages;
    for (std::string line; std::getline(text, line);) {
        if (const auto place = line.find("Page: "); place != std::string::npos) {
            EXPECT_EQ(line.find("Teacher: "), line.starts_with('\f') ? 1U : 0U);
            pages.push_back(line.substr(place + 6));
        }
    }
    EXPECT_EQ(pages, (std::vector<std::string>{"5", "6", "3", "4", "1", "2"}));
}

TEST_F(TeacherReportTest, TheTeacherReportCutsTeacherTitleAndSchool) {
    addStudents(1);
    data.teacherName = std::string(22, 't');
    sheet.sheetTitle = std::string(24, 'c');
    data.schoolName = std::string(23, 's');
    EXPECT_EQ(lines(ReportKind::Teacher).front(),
              "Teacher: " + std::string(21, 't') + " Class: " + std::string(23, 'c') +
                  "  School: " + std::string(22, 's') + "  DATE            Page: 1");
}

TEST_F(TeacherReportTest, TheTeacherReportCutsNothingThatFits) {
    addStudents(1);
    data.teacherName = std::string(21, 't');
    sheet.sheetTitle = std::string(23, 'c');
    data.schoolName = std::string(22, 's');
    EXPECT_EQ(lines(ReportKind::Teacher).front(),
              "Teacher: " + data.teacherName + " Class: " + sheet.sheetTitle +
                  "  School: " + data.schoolName + "  DATE            Page: 1");
}

TEST_F(TeacherReportTest, AChartWithoutAssignmentsStillHasItsNameAndClosingColumns) {
    addStudents(1);
    const std::string heading =
        "Teacher:                       Class:                          School:"
        "                         DATE            Page: 1";
    EXPECT_EQ(
        lines(ReportKind::Teacher),
        (std::vector<std::string>{
            heading, "                    |", "|Student Name       |Total| PP |  % |LG|",
            "|Student 1          |    0|   0| 100| A|", "|Average Scores     | --- | -- | -- |--|",
            "|Average Percent    | --- | -- | -- |--|"}));
}

TEST_F(TeacherReportTest, AveragesCountNumericScoresOnlyAndAreCut) {
    sheet.addAssignment("Quiz", 30);
    addStudents(5);
    sheet.setScore(1, 1, Score::ofText("10"));
    sheet.setScore(1, 2, Score::ofText("11"));
    sheet.setScore(1, 3, Score::zero());
    sheet.setScore(1, 4, Score::excused());
    EXPECT_EQ(line(ReportKind::Teacher, "|Average Scores"),
              "|Average Scores     |   7| --- | -- | -- |--|");
    EXPECT_EQ(line(ReportKind::Teacher, "|Average Percent"),
              "|Average Percent    |23.3| --- | -- | -- |--|");
}

TEST_F(TeacherReportTest, ThePercentOfAnAverageComesFromTheUncutAverage) {
    sheet.addAssignment("Quiz", 1);
    addStudents(3);
    sheet.setScore(1, 1, Score::ofText("1"));
    sheet.setScore(1, 2, Score::zero());
    sheet.setScore(1, 3, Score::zero());
    EXPECT_EQ(line(ReportKind::Teacher, "|Average Scores").substr(21, 4), " 0.3");
    EXPECT_EQ(line(ReportKind::Teacher, "|Average Percent").substr(21, 4), "33.3");
}

TEST_F(TeacherReportTest, AnAverageOfMoreThanFourCharactersLosesItsTenth) {
    sheet.addAssignment("Quiz", 100);
    addStudents(2);
    sheet.setScore(1, 1, Score::ofText("100"));
    sheet.setScore(1, 2, Score::ofText("101"));
    EXPECT_EQ(line(ReportKind::Teacher, "|Average Scores").substr(21, 4), " 100");
    EXPECT_EQ(line(ReportKind::Teacher, "#1-"), "#1-Quiz-PP:100-AS:100");
}

TEST_F(TeacherReportTest, AnAssignmentWithoutNumericScoresHasBlankAverages) {
    sheet.addAssignment("Quiz", 100);
    addStudents(1);
    EXPECT_EQ(line(ReportKind::Teacher, "|Average Scores").substr(21, 5), "    |");
    EXPECT_EQ(line(ReportKind::Teacher, "#1-"), "#1-Quiz-PP:100-AS:");
}

TEST_F(TeacherReportTest, AverageScoreOfAnAssignmentWorthNothingHasNoPercent) {
    sheet.addAssignment("Bonus", 0);
    addStudents(1);
    sheet.setScore(1, 1, Score::ofText("3"));
    EXPECT_EQ(line(ReportKind::Teacher, "|Average Scores").substr(21, 5), "   3|");
    EXPECT_EQ(line(ReportKind::Teacher, "|Average Percent").substr(21, 5), "    |");
}

TEST_F(TeacherReportTest, AWideValuePushesTheRestOfItsRowRight) {
    sheet.addAssignment("Quiz", 200);
    addStudents(1);
    sheet.setScore(1, 1, Score::ofText("201"));
    EXPECT_EQ(line(ReportKind::Teacher, "|Student 1 "),
              "|Student 1          | 201|  201| 200|100.5| A|");
}

TEST_F(TeacherReportTest, TheChartShowsAliasesWhereAskedFor) {
    addStudents(1);
    data.useAliases = true;
    EXPECT_TRUE(has(ReportKind::Teacher, "\n|S1                 |"));
}

TEST_F(TeacherReportTest, TheKeyHasThreeAssignmentsToALineAndSpillsWhatIsTooLong) {
    for (const char* name : {"Quiz", "Test", "An assignment with quite a long name", "Essay"}) {
        sheet.addAssignment(name, 10);
    }
    addStudents(1);
    const std::string text = print(ReportKind::Teacher);
    EXPECT_NE(
        text.find("\n#1-Quiz-PP:10-AS:                       #2-Test-PP:10-AS:"
                  "                        #3-An assignment with quite a long name-PP:10-AS:\n"
                  "#4-Essay-PP:10-AS:\n"),
        std::string::npos);
    sheet.setAssignment(1, "An assignment with quite a long name", 10);
    EXPECT_NE(print(ReportKind::Teacher)
                  .find("\n#1-An assignment with quite a long name-PP:10-AS:\n"
                        "                                        #2-Test-PP:10-AS:"),
              std::string::npos);
}

TEST_F(TeacherReportTest, TheTeacherReportIsInLandscapeAndItsOwnFontOnEverySheet) {
    addStudents(41);
    print(ReportKind::Teacher);
    EXPECT_EQ(printer.orientation(), Orientation::Landscape);
    const PrintFont own{"Courier New", 9.75F};
    EXPECT_EQ(std::ranges::count(printer.fonts(), own), 2);
}

/// Lengths of 300 dots to the inch, in a font of 25 by 46 dots.
class PaperTest : public TeacherReportTest, public testing::WithParamInterface<PageSize> {};

TEST_P(PaperTest, AFullTeacherSheetAndItsKeyFillOnePageInReadableSize) {
    addStudents(40);
    for (int i = 0; i < 20; ++i) sheet.addAssignment("Twenty letters long.", 100);
    sheet.recomputeFigures(GradingScale());
    // The fake font is 10 by 20 dots, so the page is scaled to it.
    const PageSize paper = GetParam();
    RecordingPrinter recording({paper.width * 10 / 25, paper.height * 20 / 46});
    printReport(ReportKind::Teacher, data, recording);
    for (const auto& piece : recording.pieces) {
        EXPECT_EQ(piece.page, 1);
        EXPECT_LE(piece.right, paper.width * 10 / 25) << piece.text;
        EXPECT_GE(piece.characterWidth, 9);
    }
    EXPECT_EQ(recording.calls, (std::vector<std::string>{"start Teacher Report", "end"}));
}

INSTANTIATE_TEST_SUITE_P(Paper, PaperTest,
                         testing::Values(PageSize{3300, 2550}, PageSize{3508, 2479}));

TEST_F(TeacherReportTest, OneVeryWideRowNarrowsOnlyItself) {
    sheet.addAssignment("Quiz", 100);
    addStudents(2);
    sheet.setScore(1, 1, Score::ofText("1." + std::string(100, '1')));
    sheet.recomputeFigures(GradingScale());
    RecordingPrinter recording({1200, 1000});
    printReport(ReportKind::Teacher, data, recording);
    for (const auto& piece : recording.pieces) {
        EXPECT_LE(piece.right, 1200);
        EXPECT_EQ(piece.characterWidth < 10, piece.text.starts_with("|Student 1 ")) << piece.text;
    }
}

}  // namespace

}  // namespace quorvel
