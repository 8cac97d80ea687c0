#include "core/Errors.h"
#include "reports/PrintCommand.h"
#include "reports/TextPrinter.h"
#include "tests/fakes/FakeClock.h"
#include "tests/fakes/FakeMainWindow.h"
#include "tests/fakes/FakeShell.h"
#include "tests/fakes/MemoryFiles.h"
#include "tests/fakes/ScriptedDialogs.h"
#include "tests/fakes/UnusedPorts.h"
#include "tests/reports/RecordingPrinter.h"

#include <gtest/gtest.h>

namespace quorvel {

namespace {

constexpr const char* question =
    "Type the value that corresponds to the print job you want to send to the printer.\r\n\r\n"
    "1: Full Report (All Scores for each student)\r\n\r\n"
    "2: Class Report (List of each student's total score)\r\n\r\n"
    "3: Individual Student Report (All scores for a student)\r\n\r\n"
    "4: Assignment Report (All assignment names and values)\r\n\r\n"
    "5: Teacher Report (Concise chart of all scores)\r\n\r\n"
    "6: Student Grade Report (Short descriptions of each student's grade)";

class PrintCommandTest : public testing::Test {
  protected:
    PrintCommandTest() {
        state.schoolName = "North High";
        state.teacherName = "Ms. Ames";
        state.printFont = {"Arial", 12};
        sheet.addAssignment("Quiz", 20);
    }

    void addStudents(int count) {
        for (int student = 1; student <= count; ++student) {
            const std::string number = std::to_string(student);
            sheet.addStudent("Student " + number, "Alias " + number);
        }
        sheet.recomputeFigures(GradingScale());
    }

    void expectChoice(const char* answer) {
        dialogs.expectPrompt("Print Method", question, "", answer);
    }
    void expectInvalidNumber(Answer answer) {
        dialogs.expectMessage(
            "Print Method Error",
            "An invalid number was entered.  Click OK to try again or cancel to quit.", Icon::None,
            Buttons::OkCancel, answer);
    }
    void expectCancelled() { dialogs.expectMessage("Quorvel", "Print Report Cancelled"); }
    void expectNamesOrAliases(Answer answer) {
        dialogs.expectMessage("Quorvel",
                              "Do you want the students name's to be printed? (If choice is no, "
                              "then aliases will be printed)",
                              Icon::None, Buttons::YesNo, answer);
    }
    void expectStudentNumber(const char* answer) {
        dialogs.expectPrompt("Print Individual Student Report Error",
                             "What student number's report you wish to print?", "", answer);
    }
    void expectInvalidStudent(Answer answer) {
        dialogs.expectMessage(
            "Print Individual Student Report Error",
            "An invalid student number was given.  Click OK to try again or cancel to quit.",
            Icon::None, Buttons::OkCancel, answer);
    }

    std::string print() {
        mnuPrint(context);
        EXPECT_TRUE(dialogs.allCame());
        return printer.text();
    }

    GradeSheet sheet;
    WorkingState state;
    FakeMainWindow window;
    ScriptedDialogs dialogs;
    MemoryFiles files;
    FakeShell shell;
    TextPrinter printer;
    UnusedCanvas canvas;
    FakeClock clock;
    Ports ports{dialogs, files, printer, canvas, clock, shell};
    CommandContext context{sheet, state, window, ports};
};

TEST_F(PrintCommandTest, AnEmptyAnswerCancels) {
    expectChoice("");
    expectCancelled();
    EXPECT_EQ(print(), "");
}

TEST_F(PrintCommandTest, ZeroSevenLettersNegativeAndWhatRoundsOutsideAreRefusedAndAskedAgain) {
    for (const char* answer : {"0", "7", "abc", "-1", "0.9", "6.6", "40000"}) {
        expectChoice(answer);
        expectInvalidNumber(Answer::Ok);
    }
    expectChoice("7");
    expectInvalidNumber(Answer::Cancel);
    expectCancelled();
    EXPECT_EQ(print(), "");
    EXPECT_EQ(state.reportKind, 0);
}

TEST_F(PrintCommandTest, AChoiceWithAFractionIsRoundedHalvesToTheEvenNeighbour) {
    addStudents(1);
    const std::pair<const char*, int> choices[] = {{"1.2", 1},  {"3.5", 4}, {"4.5", 4},
                                                   {" 4 x", 4}, {"6.4", 6}, {"6.5", 6}};
    for (const auto& [answer, kind] : choices) {
        expectChoice(answer);
        print();
        EXPECT_EQ(state.reportKind, kind) << answer;
    }
}

TEST_F(PrintCommandTest, OneAndAHalfAndTwoAndAHalfAreTheClassReport) {
    addStudents(1);
    for (const char* answer : {"1.5", "2.5"}) {
        expectChoice(answer);
        expectNamesOrAliases(Answer::Yes);
        print();
        EXPECT_EQ(state.reportKind, 2);
    }
}

TEST_F(PrintCommandTest, ALeadingBlankAndAWordBehindTheNumberAreFine) {
    addStudents(1);
    for (const char* answer : {" 3", "3rd one"}) {
        expectChoice(answer);
        expectStudentNumber("1");
        print();
        EXPECT_EQ(state.reportKind, 3);
    }
}

TEST_F(PrintCommandTest, OnlyTheAssignmentReportNeedsNoStudents) {
    for (const char* kind : {"1", "2", "3", "5", "6"}) {
        expectChoice(kind);
        dialogs.expectMessage("Print Student(s) Report Error",
                              "There are no students to print a report on.", Icon::Critical,
                              Buttons::Ok, Answer::Ok);
        EXPECT_EQ(print(), "");
    }
    expectChoice("4");
    EXPECT_TRUE(
        print().starts_with("***Assignment Report***\nSchool: North High\n"
                            "DATE at TIME\nTeacher: Ms. Ames\n"));
}

TEST_F(PrintCommandTest, TheClassReportPrintsNamesOrAliases) {
    addStudents(1);
    expectChoice("2");
    expectNamesOrAliases(Answer::Yes);
    EXPECT_NE(print().find("\nStudent 1  "), std::string::npos);
    EXPECT_EQ(state.reportOption, "Name");

    printer = TextPrinter();
    expectChoice("2");
    expectNamesOrAliases(Answer::No);
    EXPECT_NE(print().find("\nAlias 1  "), std::string::npos);
    EXPECT_EQ(state.reportOption, "Alias");
}

TEST_F(PrintCommandTest, TheLastStudentsNumberIsGoodAndTheNextOneIsNot) {
    addStudents(12);
    expectChoice("3");
    expectStudentNumber("13");
    expectInvalidStudent(Answer::Ok);
    expectStudentNumber("0");
    expectInvalidStudent(Answer::Ok);
    expectStudentNumber("12");
    EXPECT_NE(print().find("\nStudent: Student 12\n"), std::string::npos);
    EXPECT_EQ(state.reportOption, "12");
}

TEST_F(PrintCommandTest, AStudentNumberWithAFractionIsKeptAsTextAndRoundedForTheReport) {
    addStudents(12);
    const std::pair<const char*, const char*> numbers[] = {
        {"2.7", "Student: Student 3\n"}, {"2.5", "Student: Student 2\n"}, {"1.2", "Student 1\n"}};
    for (const auto& [number, student] : numbers) {
        printer = TextPrinter();
        expectChoice("3");
        expectStudentNumber(number);
        EXPECT_NE(print().find(student), std::string::npos) << number;
        EXPECT_EQ(state.reportOption, number);
    }
}

TEST_F(PrintCommandTest, CancelInTheStudentPromptIsAnInvalidNumberNotACancellation) {
    addStudents(2);
    expectChoice("3");
    expectStudentNumber("");
    expectInvalidStudent(Answer::Cancel);
    dialogs.expectMessage("Canceled Print Job", "Print Individual Student Report Canceled");
    EXPECT_EQ(print(), "");
    EXPECT_EQ(state.reportOption, "0");
}

TEST_F(PrintCommandTest, TheTeacherReportShowsWhatTheGridShows) {
    addStudents(1);
    state.reportOption = "Alias";  // of an earlier class report
    expectChoice("5");
    EXPECT_NE(print().find("|Student 1 "), std::string::npos);
    printer = TextPrinter();
    window.aliasesShown = true;
    expectChoice("5");
    EXPECT_NE(print().find("|Alias 1 "), std::string::npos);
}

TEST_F(PrintCommandTest, AFullReportWithoutANamedStudentIsNoJob) {
    sheet.addStudent("", "nameless");
    expectChoice("1");
    EXPECT_EQ(print(), "");
    EXPECT_EQ(printer.jobTitle(), "");
}

TEST_F(PrintCommandTest, AJobThatTheUserCallsOffInThePrintersOwnBoxEndsQuietly) {
    RecordingPrinter device({2000, 2000});
    device.calledOff = true;
    Ports withDevice{dialogs, files, device, canvas, clock, shell};
    CommandContext program{sheet, state, window, withDevice};
    addStudents(1);
    expectChoice("6");
    mnuPrint(program);
    EXPECT_EQ(device.calls, (std::vector<std::string>{"cancel"}));
}

TEST_F(PrintCommandTest, AReportThatStopsPrintsNothingAndSaysWhy) {
    addStudents(1);
    sheet.setScore(1, 1, Score::excused());
    sheet.recomputeFigures(GradingScale());
    expectChoice("1");
    EXPECT_THROW(mnuPrint(context), DivisionByZeroError);
    EXPECT_EQ(printer.text(), "");
}

TEST_F(PrintCommandTest, PrintingChangesNothingInTheSheetOrTheWindow) {
    addStudents(7);
    const StudentFigures figures = sheet.figures(1);
    expectChoice("6");
    print();
    EXPECT_FALSE(state.isDirty);
    EXPECT_EQ(sheet.figures(1), figures);
    EXPECT_TRUE(window.calls.empty());
    EXPECT_EQ(printer.fonts(), (std::vector<PrintFont>{{"Arial", 12}}));
}

}  // namespace

}  // namespace quorvel
