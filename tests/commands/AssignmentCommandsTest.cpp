#include "commands/AssignmentCommands.h"
#include "tests/fakes/CommandTest.h"

namespace quorvel {
namespace {

constexpr std::string_view addNameQuestion =
    "What is the assignments name? (no more than 20 characters)";
constexpr std::string_view valueQuestion =
    "What is the assignments value?\r\n(Any non-integer values will be rounded)";
constexpr std::string_view editNumberQuestion =
    "What is the assignment's number that you wish to edit?";
constexpr std::string_view newNameQuestion =
    "What is the new name for the assignment? (no more than 20 characters)";
constexpr std::string_view removeNumberQuestion =
    "What is the number of the assignment you wish to remove?";
constexpr std::string_view invalidValue =
    "Please enter a valid value for the assignment.  Click Ok to go back and give the assignment a "
    "value.  Clicking cancel will cancel adding this assignmnet.";
constexpr std::string_view invalidNumber =
    "Please enter a valid assignment number.  Click OK to go back and try again or click cancel to "
    "quit.";
constexpr std::string_view invalidName =
    "Please enter a valid assignment name.  Click OK to go back and try again or click cancel to "
    "quit.";

class AssignmentCommands : public CommandTest {
  protected:
    /// Three assignments "One", "Two", "Three" worth 10, 20, 30; four students.
    void makeSheet() {
        sheet.addAssignment("One", 10);
        sheet.addAssignment("Two", 20);
        sheet.addAssignment("Three", 30);
        for (const std::string_view name : {"Ann", "Bob", "Cy", "Dee"}) {
            sheet.addStudent(name, name);
            for (int assignment = 1; assignment <= 3; ++assignment)
                sheet.setScore(
                    assignment, sheet.studentCount(),
                    Score::ofText(std::to_string(10 * assignment + sheet.studentCount())));
        }
    }

    void answerAddName(std::string_view answer) {
        dialogs.expectPrompt("Add Assignment", addNameQuestion, "Assignment Name Here", answer);
    }
    void answerAddValue(std::string_view answer) {
        dialogs.expectPrompt("Add Assignment", valueQuestion, "Assignment Value Here", answer);
    }
    void answerEditNumber(std::string_view answer) {
        dialogs.expectPrompt("Edit Assignment", editNumberQuestion, "Assignment Number Here",
                             answer);
    }
    void answerNewName(std::string_view title, std::string_view oldName, std::string_view answer) {
        dialogs.expectPrompt(title, newNameQuestion, oldName, answer);
    }
    void answerEditValue(std::string_view oldValue, std::string_view answer) {
        dialogs.expectPrompt("Edit Assignment", valueQuestion, oldValue, answer);
    }
    void answerRemoveNumber(std::string_view answer) {
        dialogs.expectPrompt("Remove Assignment", removeNumberQuestion, "Assignment Number Here",
                             answer);
    }
    void expectInvalidValue(Answer answer) {
        dialogs.expectMessage("Error", invalidValue, Icon::None, Buttons::OkCancel, answer);
    }
    void expectInvalidNumber(Answer answer) {
        dialogs.expectMessage("Quorvel", invalidNumber, Icon::None, Buttons::OkCancel, answer);
    }
    void expectInvalidName(Answer answer) {
        dialogs.expectMessage("Quorvel", invalidName, Icon::None, Buttons::OkCancel, answer);
    }
    void expectEditCanceled() {
        dialogs.expectMessage("Abort Edit Assignment", "Assignment Edit Canceled");
    }
    void expectCritical(std::string_view title, std::string_view text) {
        dialogs.expectMessage(title, text, Icon::Critical, Buttons::Ok, Answer::Ok);
    }
    void expectUnchanged() {
        ASSERT_EQ(sheet.assignmentCount(), 3);
        EXPECT_EQ(sheet.assignmentName(1), "One");
        EXPECT_EQ(sheet.assignmentName(2), "Two");
        EXPECT_EQ(sheet.assignmentName(3), "Three");
        EXPECT_EQ(sheet.assignmentValue(2), 20);
        EXPECT_EQ(sheet.score(2, 4).text(), "24");
        EXPECT_TRUE(state.isDirty);
        EXPECT_TRUE(window.calls.empty());
    }
};

TEST_F(AssignmentCommands, AddingPutsANewLastAssignmentWithZeroForEveryStudent) {
    makeSheet();
    answerAddName("Final");
    answerAddValue("100");
    mnuAddA(context);
    ASSERT_EQ(sheet.assignmentCount(), 4);
    EXPECT_EQ(sheet.assignmentName(4), "Final");
    EXPECT_EQ(sheet.assignmentValue(4), 100);
    for (int student = 1; student <= 4; ++student)
        EXPECT_EQ(sheet.score(4, student), Score::zero());
    EXPECT_EQ(sheet.score(3, 4).text(), "34");
    EXPECT_TRUE(state.isDirty);
    EXPECT_EQ(window.calls, Calls{"RefreshGrid"});
}

TEST_F(AssignmentCommands, AddingToASheetWithoutStudentsSetsTheFirstAssignment) {
    answerAddName("Quiz");
    answerAddValue("20");
    mnuAddA(context);
    EXPECT_EQ(sheet.assignmentCount(), 1);
    EXPECT_EQ(sheet.studentCount(), 0);
}

TEST_F(AssignmentCommands, AddingCutsTheNameToTwentyCharacters) {
    answerAddName("0123456789abcdefghijklmnopqrst");
    answerAddValue("5");
    mnuAddA(context);
    EXPECT_EQ(sheet.assignmentName(1), "0123456789abcdefghij");
}

TEST_F(AssignmentCommands, AddingTakesTheDefaultNameAsItStands) {
    answerAddName("Assignment Name Here");
    answerAddValue("5");
    mnuAddA(context);
    EXPECT_EQ(sheet.assignmentName(1), "Assignment Name Here");
}

TEST_F(AssignmentCommands, AddingWithoutANameIsCancelled) {
    makeSheet();
    answerAddName("");
    dialogs.expectMessage("Quorvel", "Assignment Addition Canceled");
    mnuAddA(context);
    expectUnchanged();
}

TEST_F(AssignmentCommands, AddingWithoutAValueIsCancelled) {
    makeSheet();
    answerAddName("Final");
    answerAddValue("");
    dialogs.expectMessage("Quorvel", "Assignment Addition Canceled");
    mnuAddA(context);
    expectUnchanged();
}

TEST_F(AssignmentCommands, AddingIsCancelledInTheComplaintAboutTheValue) {
    makeSheet();
    answerAddName("Final");
    answerAddValue("1000");
    expectInvalidValue(Answer::Ok);
    answerAddValue("abc");
    expectInvalidValue(Answer::Cancel);
    dialogs.expectMessage("Quorvel", "Assignment Canceled");
    mnuAddA(context);
    expectUnchanged();
}

struct ValueAnswer {
    std::string_view answer;
    int value;
};

TEST_F(AssignmentCommands, AValueIsRoundedHalfUpAndLosesASmallerFraction) {
    constexpr ValueAnswer cases[] = {
        {"0", 0},       {"1", 1},   {"999", 999},   {"12.5", 13}, {"12.49", 12},
        {"0.5", 1},     {"0.9", 1}, {"998.5", 999}, {"1.49", 1},  {" 17", 17},
        {"17 pts", 17}, {"1e3", 1}, {"+8", 8},      {"5.", 5},    {".75", 1},
    };
    for (const auto& [answer, value] : cases) {
        answerAddName("Quiz");
        answerAddValue(answer);
        mnuAddA(context);
        EXPECT_EQ(sheet.assignmentValue(sheet.assignmentCount()), value) << answer;
    }
}

TEST_F(AssignmentCommands, AValueThatDoesNotComeToOneToNineHundredNinetyNineIsRefused) {
    constexpr std::string_view refused[] = {
        "0.2",  "00",  "0.0",  " 0",    "0 ",    "-0",     "-1",
        "-0.3", "abc", "1000", "999.5", "999.4", "123456", "Assignment Value Here"};
    answerAddName("Quiz");
    for (const std::string_view answer : refused) {
        answerAddValue(answer);
        expectInvalidValue(Answer::Ok);
    }
    answerAddValue("99999999999999999999999999999999999999999999");
    expectInvalidValue(Answer::Ok);
    answerAddValue("7");
    mnuAddA(context);
    EXPECT_EQ(sheet.assignmentValue(1), 7);
}

TEST_F(AssignmentCommands, EditingChangesNameAndValueAndLeavesTheScores) {
    makeSheet();
    answerEditNumber("2");
    answerNewName("Edit Assignment 2", "Two", "Second");
    answerEditValue("20", "25");
    mnuEditA(context);
    EXPECT_EQ(sheet.assignmentName(2), "Second");
    EXPECT_EQ(sheet.assignmentValue(2), 25);
    EXPECT_EQ(sheet.score(2, 3).text(), "23");
    EXPECT_TRUE(state.isDirty);
    EXPECT_EQ(window.calls, Calls{"RefreshGrid"});
}

TEST_F(AssignmentCommands, EditingANegativeNumberMeansThatAssignment) {
    makeSheet();
    answerEditNumber("-2");
    answerNewName("Edit Assignment 2", "Two", "Second");
    answerEditValue("20", "0");
    mnuEditA(context);
    EXPECT_EQ(sheet.assignmentName(2), "Second");
    EXPECT_EQ(sheet.assignmentValue(2), 0);
}

TEST_F(AssignmentCommands, EditingRoundsAFractionHalvesToEven) {
    makeSheet();
    answerEditNumber("2.5");
    answerNewName("Edit Assignment 2.5", "Two", "Two");
    answerEditValue("20", "20");
    mnuEditA(context);
}

TEST_F(AssignmentCommands, EditingCutsTheNewNameToTwentyCharacters) {
    makeSheet();
    answerEditNumber("3");
    answerNewName("Edit Assignment 3", "Three", "0123456789abcdefghijklmnopqrst");
    answerEditValue("30", "30");
    mnuEditA(context);
    EXPECT_EQ(sheet.assignmentName(3), "0123456789abcdefghij");
}

TEST_F(AssignmentCommands, EditingComplainsAboutEveryInvalidNumber) {
    makeSheet();
    for (const std::string_view answer :
         {"0", "4", "", "Assignment Number Here", "-4", "0.5", "3.5"}) {
        answerEditNumber(answer);
        expectInvalidNumber(Answer::Ok);
    }
    answerEditNumber("1");
    answerNewName("Edit Assignment 1", "One", "One");
    answerEditValue("10", "10");
    mnuEditA(context);
}

TEST_F(AssignmentCommands, EditingStopsWhenTheComplaintAboutTheNumberIsCancelled) {
    makeSheet();
    answerEditNumber("4");
    expectInvalidNumber(Answer::Cancel);
    expectEditCanceled();
    mnuEditA(context);
    expectUnchanged();
}

TEST_F(AssignmentCommands, EditingAsksForANameUntilThereIsOne) {
    makeSheet();
    answerEditNumber("1");
    answerNewName("Edit Assignment 1", "One", "");
    expectInvalidName(Answer::Ok);
    answerNewName("Edit Assignment 1", "One", "First");
    answerEditValue("10", "10");
    mnuEditA(context);
    EXPECT_EQ(sheet.assignmentName(1), "First");
}

TEST_F(AssignmentCommands, EditingStopsWhenTheComplaintAboutTheNameIsCancelled) {
    makeSheet();
    answerEditNumber("1");
    answerNewName("Edit Assignment 1", "One", "");
    expectInvalidName(Answer::Cancel);
    expectEditCanceled();
    mnuEditA(context);
    expectUnchanged();
}

TEST_F(AssignmentCommands, EditingWithoutAValueKeepsTheOldNameToo) {
    makeSheet();
    answerEditNumber("2");
    answerNewName("Edit Assignment 2", "Two", "Second");
    answerEditValue("20", "");
    dialogs.expectMessage("Quorvel", "Assignment Canceled");
    mnuEditA(context);
    expectUnchanged();
}

TEST_F(AssignmentCommands, EditingComplainsAboutTheValueInTheWordsOfAdding) {
    makeSheet();
    answerEditNumber("2");
    answerNewName("Edit Assignment 2", "Two", "Second");
    answerEditValue("20", "0.2");
    expectInvalidValue(Answer::Ok);
    answerEditValue("20", "1000");
    expectInvalidValue(Answer::Cancel);
    dialogs.expectMessage("Quorvel", "Assignment Canceled");
    mnuEditA(context);
    expectUnchanged();
}

TEST_F(AssignmentCommands, EditingWithoutAssignmentsIsRefusedAndMarksTheSheetUnsaved) {
    expectCritical("Error", "There are no assignments to which you can edit.");
    mnuEditA(context);
    EXPECT_TRUE(state.isDirty);
    EXPECT_TRUE(window.calls.empty());
}

TEST_F(AssignmentCommands, RemovingTheFirstMovesTheOthersWithAllTheirScores) {
    makeSheet();
    answerRemoveNumber("1");
    mnuRemoveA(context);
    ASSERT_EQ(sheet.assignmentCount(), 2);
    EXPECT_EQ(sheet.assignmentName(1), "Two");
    EXPECT_EQ(sheet.assignmentValue(1), 20);
    EXPECT_EQ(sheet.assignmentName(2), "Three");
    for (int student = 1; student <= 4; ++student) {
        EXPECT_EQ(sheet.score(1, student).text(), std::to_string(20 + student));
        EXPECT_EQ(sheet.score(2, student).text(), std::to_string(30 + student));
    }
    EXPECT_TRUE(state.isDirty);
    EXPECT_EQ(window.calls, Calls{"RefreshGrid"});
}

TEST_F(AssignmentCommands, RemovingTheLastDropsItsColumnOnly) {
    makeSheet();
    answerRemoveNumber("-3");
    mnuRemoveA(context);
    ASSERT_EQ(sheet.assignmentCount(), 2);
    EXPECT_EQ(sheet.assignmentName(2), "Two");
    EXPECT_EQ(sheet.score(2, 4).text(), "24");
}

TEST_F(AssignmentCommands, RemovingTheOnlyOneLeavesNone) {
    sheet.addAssignment("Only", 5);
    answerRemoveNumber("1.5 no: 1");
    dialogs.expectMessage("Abort Remove Assignment",
                          "Assignment Removal Canceled Due to the Invalid Number You Supplied");
    mnuRemoveA(context);
    EXPECT_EQ(sheet.assignmentCount(), 1);
    answerRemoveNumber("1");
    mnuRemoveA(context);
    EXPECT_EQ(sheet.assignmentCount(), 0);
}

TEST_F(AssignmentCommands, RemovingWithoutANumberIsCancelled) {
    makeSheet();
    answerRemoveNumber("");
    dialogs.expectMessage("Quorvel", "Assignment Removal Canceled");
    mnuRemoveA(context);
    expectUnchanged();
}

TEST_F(AssignmentCommands, RemovingAnInvalidNumberEndsAtOnce) {
    makeSheet();
    for (const std::string_view answer :
         {"0", "4", "-4", "abc", "0.5", "3.5", "Assignment Number Here"}) {
        answerRemoveNumber(answer);
        dialogs.expectMessage("Abort Remove Assignment",
                              "Assignment Removal Canceled Due to the Invalid Number You Supplied");
        mnuRemoveA(context);
        expectUnchanged();
    }
}

TEST_F(AssignmentCommands, RemovingWithoutAssignmentsIsRefusedAndMarksTheSheetUnsaved) {
    expectCritical("Remove Assignment Error", "There are no assignments to remove.");
    mnuRemoveA(context);
    EXPECT_TRUE(state.isDirty);
    EXPECT_TRUE(window.calls.empty());
}

TEST_F(AssignmentCommands, TheSheetIsMarkedUnsavedBeforeTheFirstQuestion) {
    answerAddName("");
    bool dirtyInTheBox = false;
    dialogs.whileOpen([&] { dirtyInTheBox = state.isDirty; });
    dialogs.expectMessage("Quorvel", "Assignment Addition Canceled");
    mnuAddA(context);
    EXPECT_TRUE(dirtyInTheBox);
}

}  // namespace
}  // namespace quorvel
