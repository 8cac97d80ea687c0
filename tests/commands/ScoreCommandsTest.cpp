#include "commands/ScoreCommands.h"
#include "tests/fakes/CommandTest.h"

namespace quorvel {
namespace {

constexpr std::string_view assignmentTitle = "Input Assignment Scores";
constexpr std::string_view studentTitle = "Input Student Scores";
constexpr std::string_view assignmentSelection = "What assignment do you want to input scores for?";
constexpr std::string_view studentSelection = "What student do you want to input scores for?";

class ScoreCommands : public CommandTest {
  protected:
    /// Students "Ann", "Bob", "Cy" and assignments "Quiz" (10) and "Test" (20), without scores.
    void makeSheet() {
        sheet.addAssignment("Quiz", 10);
        sheet.addAssignment("Test", 20);
        for (const std::string_view name : {"Ann", "Bob", "Cy"}) sheet.addStudent(name, "alias");
    }

    void answerSelection(std::string_view title, std::string_view question,
                         std::string_view answer) {
        dialogs.expectPrompt(title, question, "", answer);
    }
    void answerScore(std::string_view title, const std::string& student,
                     const std::string& assignmentAndValue, std::string_view oldScore,
                     std::string_view answer) {
        dialogs.expectPrompt(title,
                             "Student: " + student + "\r\n\r\nAssignment: " + assignmentAndValue +
                                 "\r\n\r\nWhat was this student's score on this assignment?\r\n"
                                 "(Any non-integer values will be rounded...E = Excused)",
                             oldScore, answer);
    }
    void expectCritical(std::string_view text) {
        dialogs.expectMessage("Error", text, Icon::Critical, Buttons::Ok, Answer::Ok);
    }
    void expectRefused() {
        EXPECT_TRUE(state.isDirty);
        EXPECT_EQ(window.calls, Calls{"hideEditor"});
    }

    static constexpr const char* quiz = "Quiz\r\nValue: 10";
    static constexpr const char* test = "Test\r\nValue: 20";
};

TEST_F(ScoreCommands, ByAssignmentWalksDownTheRoster) {
    makeSheet();
    answerSelection(assignmentTitle, assignmentSelection, "2");
    answerScore(assignmentTitle, "Ann", test, "", "18");
    answerScore(assignmentTitle, "Bob", test, "", "e");
    answerScore(assignmentTitle, "Cy", test, "", "25");
    mnuInputA(context);
    EXPECT_EQ(sheet.score(2, 1), Score::ofText("18"));
    EXPECT_EQ(sheet.score(2, 2), Score::excused());
    EXPECT_EQ(sheet.score(2, 3), Score::ofText("25"));
    EXPECT_TRUE(sheet.score(1, 1).isEmpty());
    EXPECT_TRUE(state.isDirty);
    EXPECT_EQ(window.calls, (Calls{"hideEditor", "RefreshGrid"}));
}

TEST_F(ScoreCommands, ByStudentWalksAcrossTheAssignments) {
    makeSheet();
    answerSelection(studentTitle, studentSelection, "3");
    answerScore(studentTitle, "Cy", quiz, "", "9");
    answerScore(studentTitle, "Cy", test, "", "17");
    mnuInputS(context);
    EXPECT_EQ(sheet.score(1, 3), Score::ofText("9"));
    EXPECT_EQ(sheet.score(2, 3), Score::ofText("17"));
    EXPECT_TRUE(sheet.score(1, 1).isEmpty());
    EXPECT_TRUE(state.isDirty);
    EXPECT_EQ(window.calls, (Calls{"hideEditor", "RefreshGrid"}));
}

struct ScoreAnswer {
    std::string_view answer;
    std::string_view score;
};

TEST_F(ScoreCommands, AnAnswerBecomesAScore) {
    constexpr ScoreAnswer cases[] = {
        {"e", "E"},       {"E", "E"},     {"x", "0"},          {"-4", "4"},      {"9.5", "10"},
        {"9.25", "9.25"}, {"7.4", "7.4"}, {"0", "0"},          {"1000", "1000"}, {" e", "0"},
        {"ex", "0"},      {"-0.5", "1"},  {" 12 of 20", "12"}, {"007", "7"},     {"99.99", "100"},
    };
    sheet.addStudent("Ann", "A");
    sheet.addAssignment("Quiz", 10);
    std::string old;
    for (const auto& [answer, score] : cases) {
        answerSelection(assignmentTitle, assignmentSelection, "1");
        answerScore(assignmentTitle, "Ann", quiz, old, answer);
        mnuInputA(context);
        EXPECT_EQ(sheet.score(1, 1), Score::ofText(score)) << answer;
        old = score;
    }
}

TEST_F(ScoreCommands, TheDefaultAnswerIsTheCellsScoreWhateverItsKind) {
    makeSheet();
    sheet.setScore(1, 1, Score::zero());
    sheet.setScore(1, 2, Score::excused());
    sheet.setScore(1, 3, Score::ofText("7.4"));
    answerSelection(assignmentTitle, assignmentSelection, "1");
    answerScore(assignmentTitle, "Ann", quiz, "0", "0");
    answerScore(assignmentTitle, "Bob", quiz, "E", "E");
    answerScore(assignmentTitle, "Cy", quiz, "7.4", "7.4");
    mnuInputA(context);
    EXPECT_EQ(sheet.score(1, 1), Score::ofText("0"));
    EXPECT_EQ(sheet.score(1, 2), Score::excused());
    EXPECT_EQ(sheet.score(1, 3), Score::ofText("7.4"));
}

TEST_F(ScoreCommands, CancellingByAssignmentKeepsTheEarlierScoresAndRefreshesFirst) {
    makeSheet();
    answerSelection(assignmentTitle, assignmentSelection, "1");
    answerScore(assignmentTitle, "Ann", quiz, "", "1");
    answerScore(assignmentTitle, "Bob", quiz, "", "2");
    answerScore(assignmentTitle, "Cy", quiz, "", "");
    dialogs.expectMessage("Cancelation", "Remainder of Input Assignment Scores have been canceled");
    Calls before;
    dialogs.whileOpen([&] { before = window.calls; });
    mnuInputA(context);
    EXPECT_EQ(sheet.score(1, 1).text(), "1");
    EXPECT_EQ(sheet.score(1, 2).text(), "2");
    EXPECT_TRUE(sheet.score(1, 3).isEmpty());
    EXPECT_EQ(before, (Calls{"hideEditor", "RefreshGrid"}));
    EXPECT_EQ(window.calls, before);
}

TEST_F(ScoreCommands, CancellingByStudentKeepsTheEarlierScoresAndRefreshesFirst) {
    makeSheet();
    answerSelection(studentTitle, studentSelection, "2");
    answerScore(studentTitle, "Bob", quiz, "", "8");
    answerScore(studentTitle, "Bob", test, "", "");
    dialogs.expectMessage("Cancelation", "Remainder of Input Student Scores have been canceled");
    Calls before;
    dialogs.whileOpen([&] { before = window.calls; });
    mnuInputS(context);
    EXPECT_EQ(sheet.score(1, 2).text(), "8");
    EXPECT_TRUE(sheet.score(2, 2).isEmpty());
    EXPECT_EQ(before, (Calls{"hideEditor", "RefreshGrid"}));
    EXPECT_EQ(window.calls, before);
}

TEST_F(ScoreCommands, ByAssignmentAsksAgainForANumberOutOfRangeWithoutAWord) {
    makeSheet();
    for (const std::string_view answer : {"0", "3", "abc", "0.5", "2.6", "-3"})
        answerSelection(assignmentTitle, assignmentSelection, answer);
    answerSelection(assignmentTitle, assignmentSelection, "-2");
    answerScore(assignmentTitle, "Ann", test, "", "");
    dialogs.expectMessage("Cancelation", "Remainder of Input Assignment Scores have been canceled");
    mnuInputA(context);
}

TEST_F(ScoreCommands, ByStudentANegativeNumberIsOutOfRange) {
    makeSheet();
    for (const std::string_view answer : {"-2", "0", "4", "abc", "3.5"})
        answerSelection(studentTitle, studentSelection, answer);
    answerSelection(studentTitle, studentSelection, "2.5");
    answerScore(studentTitle, "Bob", quiz, "", "");
    dialogs.expectMessage("Cancelation", "Remainder of Input Student Scores have been canceled");
    mnuInputS(context);
}

TEST_F(ScoreCommands, ByAssignmentAnEmptySelectionEndsIt) {
    makeSheet();
    answerSelection(assignmentTitle, assignmentSelection, "9");
    answerSelection(assignmentTitle, assignmentSelection, "");
    dialogs.expectMessage("Cancelation", "Input Assignment Scores Canceled");
    mnuInputA(context);
    expectRefused();
}

TEST_F(ScoreCommands, ByStudentAnEmptySelectionEndsIt) {
    makeSheet();
    answerSelection(studentTitle, studentSelection, "");
    dialogs.expectMessage("Cancelation", "Input Student Scores Canceled");
    mnuInputS(context);
    expectRefused();
}

TEST_F(ScoreCommands, ByAssignmentTheTwoRefusalsAreCrossedOver) {
    expectCritical("There are no assignments to which you can input scores.");
    mnuInputA(context);
    expectRefused();

    sheet.addAssignment("Quiz", 10);
    expectCritical("There are no assignments to which you can input scores.");
    mnuInputA(context);

    sheet.removeAssignment(1);
    sheet.addStudent("Ann", "A");
    expectCritical("There are no students to which you can input scores.");
    mnuInputA(context);
}

TEST_F(ScoreCommands, ByStudentBothRefusalsAreTheSame) {
    expectCritical("There are no students to which you can input scores.");
    mnuInputS(context);
    expectRefused();

    sheet.addAssignment("Quiz", 10);
    expectCritical("There are no students to which you can input scores.");
    mnuInputS(context);

    sheet.removeAssignment(1);
    sheet.addStudent("Ann", "A");
    expectCritical("There are no students to which you can input scores.");
    mnuInputS(context);
}

TEST_F(ScoreCommands, TheRosterIsNotSorted) {
    sheet.addAssignment("Quiz", 10);
    sheet.addStudent("Zoe", "Z");
    sheet.addStudent("Ann", "A");
    answerSelection(assignmentTitle, assignmentSelection, "1");
    answerScore(assignmentTitle, "Zoe", quiz, "", "1");
    answerScore(assignmentTitle, "Ann", quiz, "", "2");
    mnuInputA(context);
    EXPECT_EQ(sheet.studentName(1), "Zoe");
}

}  // namespace
}  // namespace quorvel
