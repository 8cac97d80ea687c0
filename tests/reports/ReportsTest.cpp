#include <algorithm>
#include <sstream>

#include "core/Errors.h"
#include "reports/Report.h"
#include "tests/reports/RecordingPrinter.h"
#include "tests/reports/ReportsFixture.h"

#include <gtest/gtest.h>

namespace quorvel {

namespace {

// Full and individual report

TEST_F(ReportsTest, TheHeadingSlashStandsAColumnBeforeThatOfTheRows) {
    sheet.addAssignment("Quiz", 20);
    addStudents(1);
    sheet.setScore(1, 1, Score::ofText("17"));
    EXPECT_EQ(line(ReportKind::Full, "Assignment Name"),
              "Assignment Name              Grade  / Value  Percent");
    EXPECT_EQ(line(ReportKind::Full, "Quiz"), "Quiz                         17     / 20     85 %");
}

TEST_F(ReportsTest, AnExcusedScorePrintsExcuseInThePercentColumn) {
    sheet.addAssignment("Quiz", 20);
    sheet.addAssignment("Test", 10);
    addStudents(1);
    sheet.setScore(1, 1, Score::excused());
    EXPECT_EQ(line(ReportKind::Full, "Quiz"),
              "Quiz                         E      / 20     Excuse");
}

TEST_F(ReportsTest, AnExcusedScoreOfAnAssignmentWorthNothingPrintsExcuseToo) {
    sheet.addAssignment("Bonus", 0);
    sheet.addAssignment("Test", 10);
    addStudents(1);
    sheet.setScore(1, 1, Score::excused());
    EXPECT_EQ(line(ReportKind::Full, "Bonus"),
              "Bonus                        E      / 0      Excuse");
}

TEST_F(ReportsTest, AnAssignmentWorthNothingHasNoPercentage) {
    sheet.addAssignment("Bonus", 0);
    sheet.addAssignment("Test", 10);
    addStudents(1);
    sheet.setScore(1, 1, Score::ofText("3"));
    EXPECT_EQ(line(ReportKind::Full, "Bonus"), "Bonus                        3      / 0");
}

TEST_F(ReportsTest, AnEmptyScoreIsBlankAndCountsAsNothing) {
    sheet.addAssignment("Quiz", 20);
    addStudents(1);
    EXPECT_EQ(line(ReportKind::Full, "Quiz"), "Quiz                                / 20     0 %");
}

TEST_F(ReportsTest, ATypedFractionCountsAsTheDecimalThatItIs) {
    sheet.addAssignment("Quiz", 10);
    addStudents(1);
    sheet.setScore(1, 1, Score::ofText("2.03"));
    EXPECT_EQ(line(ReportKind::Full, "Quiz"),
              "Quiz                         2.03   / 10     20.3 %");
}

TEST_F(ReportsTest, TheFullReportStartsAPageForEachStudentAndNoBlankOne) {
    sheet.addAssignment("Quiz", 20);
    addStudents(2);
    print(ReportKind::Full);
    EXPECT_EQ(printer.pageCount(), 2);
    EXPECT_TRUE(printer.text().starts_with("***Student Report***\n"));
}

TEST_F(ReportsTest, TheFullReportSkipsStudentsAndAssignmentsWithoutAName) {
    sheet.addAssignment("Quiz", 20);
    sheet.addAssignment("", 30);
    addStudents(1);
    sheet.addStudent("", "nameless");
    const std::string text = print(ReportKind::Full);
    EXPECT_EQ(printer.pageCount(), 1);
    EXPECT_EQ(text.find("/ 30"), std::string::npos);
    EXPECT_NE(text.find("(out of 2 students)"), std::string::npos);
    EXPECT_NE(text.find("/ 50"), std::string::npos) << "its points count all the same";
}

TEST_F(ReportsTest, TheIndividualReportHasNoPercentColumnButTheSameTotal) {
    sheet.addAssignment("Quiz", 20);
    sheet.addAssignment("", 30);
    addStudents(2);
    sheet.setScore(1, 2, Score::ofText("19"));
    data.student = 2;
    EXPECT_EQ(lines(ReportKind::IndividualStudent),
              (std::vector<std::string>{
                  "***Student Report***", "DATE at TIME", "Class Average: 19%", "", "",
                  "Student: Student 2", "Class Rank: 1 (out of 2 students)", "", "",
                  "Assignment Name              Grade  / Value",
                  "Quiz                         19     / 20",
                  "Total:                       19     / 50     38 %     Grade: F"}));
}

TEST_F(ReportsTest, TheIndividualReportPrintsAStudentWithoutAName) {
    sheet.addAssignment("Quiz", 20);
    sheet.addStudent("", "nameless");
    data.student = 1;
    EXPECT_TRUE(has(ReportKind::IndividualStudent, "\nStudent:\n"));
}

TEST_F(ReportsTest, AStudentWithoutPointsPossibleStopsFullAndIndividualReportAndTheJobIsCancelled) {
    sheet.addAssignment("Quiz", 20);
    addStudents(2);
    sheet.setScore(1, 2, Score::excused());
    data.student = 2;
    for (const ReportKind kind : {ReportKind::Full, ReportKind::IndividualStudent}) {
        EXPECT_THROW(print(kind), DivisionByZeroError);
        EXPECT_EQ(printer.text(), "");
        EXPECT_EQ(printer.pageCount(), 0);
    }
}

TEST_F(ReportsTest, TheOtherReportsPrintTheStoredPercentageOfAStudentWithoutPointsPossible) {
    sheet.addAssignment("Quiz", 20);
    addStudents(1);
    sheet.setScore(1, 1, Score::excused());
    EXPECT_TRUE(has(ReportKind::Class, "0      / 0      100 %    Grade: A"));
    EXPECT_TRUE(has(ReportKind::Teacher, "|    0|   0| 100| A|"));
    EXPECT_TRUE(has(ReportKind::StudentGrade, "your grade is a(n) 'A' 100%."));
}

// Class report

TEST_F(ReportsTest, ANameOfTwentyFourCharactersKeepsItsFiguresBesideIt) {
    sheet.addAssignment("Quiz", 20);
    sheet.addStudent(std::string(24, 'x'), "");
    EXPECT_EQ(line(ReportKind::Class, "xx"),
              std::string(24, 'x') + "Total:  0      / 20     0 %      Grade: F");
}

TEST_F(ReportsTest, ANameOfTwentyFiveCharactersSendsItsFiguresToTheNextLine) {
    sheet.addAssignment("Quiz", 20);
    sheet.addStudent(std::string(25, 'x'), "");
    EXPECT_TRUE(has(ReportKind::Class, std::string(25, 'x') + "\n" + std::string(24, ' ') +
                                           "Total:  0      / 20     0 %      Grade: F\n"));
}

TEST_F(ReportsTest, ANameOfMoreThanThirtyCharactersMovesItsColumnsByTheExcess) {
    sheet.addAssignment("Quiz", 20);
    for (const std::size_t length : {30U, 31U, 36U}) sheet.addStudent(std::string(length, 'x'), "");
    for (const std::size_t length : {30U, 31U, 36U}) {
        EXPECT_TRUE(has(ReportKind::Class, "\n" + std::string(length, 'x') + "\n" +
                                               std::string(24 + length - 30, ' ') +
                                               "Total:  0      / 20     0 %      Grade: F\n"))
            << length;
    }
}

TEST_F(ReportsTest, AliasesAlwaysUseTheBaseColumns) {
    sheet.addAssignment("Quiz", 20);
    sheet.addStudent("Somebody", std::string(36, 'x'));
    data.useAliases = true;
    EXPECT_TRUE(has(ReportKind::Class, std::string(36, 'x') + "\n" + std::string(24, ' ') +
                                           "Total:  0      / 20     0 %      Grade: F\n"));
}

TEST_F(ReportsTest, AStudentWithoutANameIsLeftOutOfTheClassReportEvenByAlias) {
    sheet.addAssignment("Quiz", 20);
    sheet.addStudent("", "nameless");
    data.useAliases = true;
    EXPECT_FALSE(has(ReportKind::Class, "Total:"));
}

TEST_F(ReportsTest, TheClassReportNamesItselfBeforeTheDate) {
    addStudents(1);
    data.schoolName = "North High";
    data.teacherName = "Ms. Ames";
    sheet.sheetTitle = "Math - 1";
    EXPECT_TRUE(print(ReportKind::Class)
                    .starts_with("***Class Report***\nSchool: North High\nClass: Math - 1\n"
                                 "Class Report As of DATE at TIME\nTeacher: Ms. Ames\n"
                                 "Class Average: 100%\n\n\nStudent 1"));
}

// Assignment report

TEST_F(ReportsTest, TheAssignmentReportNeedsNoStudentsAndSkipsNothing) {
    sheet.addAssignment("Quiz", 20);
    sheet.addAssignment("", 5);
    EXPECT_EQ(lines(ReportKind::Assignment),
              (std::vector<std::string>{"***Assignment Report***", "DATE at TIME", "", "",
                                        "#     Assignment Name               Value",
                                        "1     Quiz                          20",
                                        "2                                   5"}));
}

// Student grade report

TEST_F(ReportsTest, EveryStudentWhoseNumberIsAMultipleOfSixStartsAPage) {
    addStudents(13);
    print(ReportKind::StudentGrade);
    EXPECT_EQ(printer.pageCount(), 3);
    std::istringstream text(printer.text());
    std::vector<int> slips{0};
    for (std::string line; std::getline(text, line);) {
        if (line.starts_with('\f')) slips.push_back(0);
        if (line.ends_with("***Student Grade Report***")) ++slips.back();
    }
    EXPECT_EQ(slips, (std::vector<int>{5, 6, 2}));
}

TEST_F(ReportsTest, SevenStudentsGiveFiveSlipsAndThenTwo) {
    addStudents(7);
    print(ReportKind::StudentGrade);
    EXPECT_EQ(printer.pageCount(), 2);
}

TEST_F(ReportsTest, ASlipStandsBehindTwoEmptyLinesUnlessItStartsAPage) {
    addStudents(6);
    const std::string text = print(ReportKind::StudentGrade);
    EXPECT_TRUE(text.starts_with("\n\n***Student Grade Report***\nSchool:      Class:\n"));
    EXPECT_NE(text.find("\f***Student Grade Report***"), std::string::npos);
}

TEST_F(ReportsTest, ASlipSaysTheGradeInASentence) {
    sheet.addAssignment("Quiz", 200);
    sheet.addStudent("Glugeis", "");
    sheet.setScore(1, 1, Score::ofText("175"));
    EXPECT_EQ(line(ReportKind::StudentGrade, "Glugeis"), "Glugeis, your grade is a(n) 'B' 87.5%.");
    EXPECT_TRUE(has(ReportKind::StudentGrade, "\nYou have earned 175 points out of 200.\n"));
}

TEST_F(ReportsTest, TheOtherReportsAreUprightAndInTheDefaultFont) {
    sheet.addAssignment("Quiz", 10);
    addStudents(1);
    data.student = 1;
    for (const ReportKind kind :
         {ReportKind::Full, ReportKind::Class, ReportKind::IndividualStudent,
          ReportKind::Assignment, ReportKind::StudentGrade}) {
        print(kind);
        EXPECT_EQ(printer.orientation(), Orientation::Portrait);
        EXPECT_EQ(printer.fonts(), (std::vector<PrintFont>{{"Arial", 12}}));
    }
}

TEST_F(ReportsTest, EveryJobIsNamedAfterItsReport) {
    sheet.addAssignment("Quiz", 10);
    addStudents(1);
    data.student = 1;
    const std::pair<ReportKind, const char*> jobs[] = {
        {ReportKind::Full, "Student Report"},
        {ReportKind::Class, "Class Report"},
        {ReportKind::IndividualStudent, "Student Report"},
        {ReportKind::Assignment, "Assignment Report"},
        {ReportKind::Teacher, "Teacher Report"},
        {ReportKind::StudentGrade, "Student Grade Report"}};
    for (const auto& [kind, name] : jobs) {
        print(kind);
        EXPECT_EQ(printer.jobTitle(), name);
    }
}

TEST_F(ReportsTest, PagesForDifferentStudentsArePrintedOnOneSide) {
    sheet.addAssignment("Quiz", 10);
    addStudents(2);
    data.student = 1;
    sheet.recomputeFigures(GradingScale());
    for (int kind = 1; kind <= 6; ++kind) {
        RecordingPrinter device({2550, 3300});
        printReport(static_cast<ReportKind>(kind), data, device);
        EXPECT_EQ(device.oneSided, kind == 1 || kind == 6) << "report " << kind;
    }
}

TEST_F(ReportsTest, TheFullReportWithoutANamedStudentIsNoJob) {
    sheet.addStudent("", "nameless");
    RecordingPrinter device({2550, 3300});
    printReport(ReportKind::Full, data, device);
    EXPECT_TRUE(device.calls.empty());
}

TEST_F(ReportsTest, APrinterThatFailsAtAnyCallLeavesACancelledJobAndItsReason) {
    sheet.addAssignment("Quiz", 10);
    addStudents(7);
    data.student = 1;
    sheet.recomputeFigures(GradingScale());
    for (int kind = 1; kind <= 6; ++kind) {
        RecordingPrinter sound({2550, 3300});
        printReport(static_cast<ReportKind>(kind), data, sound);
        EXPECT_EQ(sound.calls.back(), "end");
        for (int call = 1; call <= sound.callCount(); ++call) {
            RecordingPrinter failing({2550, 3300});
            failing.failingCall = call;
            try {
                printReport(static_cast<ReportKind>(kind), data, failing);
                ADD_FAILURE() << "report " << kind << " did not notice failure " << call;
            } catch (const PrinterError& error) {
                EXPECT_STREQ(error.what(), "The printer is on fire.");
            }
            ASSERT_FALSE(failing.calls.empty());
            EXPECT_EQ(failing.calls.back(), "cancel");
        }
    }
}

}  // namespace

}  // namespace quorvel
