#include "commands/StudentCommands.h"
#include "tests/fakes/CommandTest.h"

namespace quorvel {
namespace {

constexpr std::string_view nameQuestion =
    "What is the student's full name?\r\n(Recommended Format: LastName, FirstName)";
constexpr std::string_view aliasQuestion =
    "What is the student's alias? (no more than 15 characters)";
constexpr std::string_view editNumberQuestion =
    "Please enter the student number that you wish to edit.";
constexpr std::string_view editNameQuestion =
    "What is the student's name? (no more than 15 characters)";
constexpr std::string_view removeNumberQuestion =
    "Please enter the student number that you wish to remove.";
constexpr std::string_view invalidNumber =
    "A valid student number was not entered.  Click OK to try again or Cancel to stop trying.";

class StudentCommands : public CommandTest {
  protected:
    void addAssignments(int count) {
        for (int number = 1; number <= count; ++number)
            sheet.addAssignment("Quiz " + std::to_string(number), 10);
    }
    /// Students "Student A", "Student B", ... whose score in assignment a is the text "a" followed
    /// by their letter's place.
    void addStudents(int count) {
        for (int number = 1; number <= count; ++number) {
            const std::string letter(1, static_cast<char>('A' + number - 1));
            sheet.addStudent("Student " + letter, letter);
            for (int assignment = 1; assignment <= sheet.assignmentCount(); ++assignment)
                sheet.setScore(assignment, number,
                               Score::ofText(std::to_string(10 * assignment + number)));
        }
    }

    void answerAdd(std::string_view name, std::string_view alias) {
        dialogs.expectPrompt("Add Student", nameQuestion, "", name);
        if (!name.empty()) dialogs.expectPrompt("Add Student", aliasQuestion, "", alias);
    }
    void expectAdditionCanceled() {
        dialogs.expectMessage("Canceled Student Addition", "Student Addition Canceled");
    }
    void answerEditNumber(std::string_view answer) {
        dialogs.expectPrompt("Edit Student", editNumberQuestion, "", answer);
    }
    void answerRemoveNumber(std::string_view answer) {
        dialogs.expectPrompt("Remove Student", removeNumberQuestion, "", answer);
    }
    void expectInvalidNumber(Answer answer) {
        dialogs.expectMessage("Error", invalidNumber, Icon::None, Buttons::OkCancel, answer);
    }
    void answerEdit(std::string_view oldName, std::string_view name, std::string_view oldAlias,
                    std::string_view alias) {
        dialogs.expectPrompt("Edit Student", editNameQuestion, oldName, name);
        if (name.empty()) dialogs.expectMessage("Edit Student", "Student Addition Canceled");
        dialogs.expectPrompt("Edit Student", aliasQuestion, oldAlias, alias);
        if (alias.empty()) dialogs.expectMessage("Edit Student", "Student Edit Canceled");
    }
    void expectScores(int assignment, const std::vector<std::string>& texts) {
        ASSERT_EQ(sheet.studentCount(), static_cast<int>(texts.size()));
        for (int student = 1; student <= sheet.studentCount(); ++student)
            EXPECT_EQ(sheet.score(assignment, student).text(),
                      texts[static_cast<std::size_t>(student) - 1])
                << "assignment " << assignment << ", student " << student;
    }
};

TEST_F(StudentCommands, AddingPutsTheStudentIntoTheRoster) {
    answerAdd("Doe, Jane", "Jane");
    mnuAddS(context);
    ASSERT_EQ(sheet.studentCount(), 1);
    EXPECT_EQ(sheet.studentName(1), "Doe, Jane");
    EXPECT_EQ(sheet.studentAlias(1), "Jane");
    EXPECT_TRUE(state.isDirty);
    EXPECT_EQ(window.calls, (Calls{"setStudentScrollMaximum 1", "RefreshGrid"}));
}

TEST_F(StudentCommands, AddingGivesTheStudentTheWholeNumberZeroInEveryAssignment) {
    addAssignments(3);
    answerAdd("Doe, Jane", "Jane");
    mnuAddS(context);
    for (int assignment = 1; assignment <= 3; ++assignment)
        EXPECT_EQ(sheet.score(assignment, 1), Score::zero());
}

TEST_F(StudentCommands, AddingLeavesTheScoresOfOthersAlone) {
    addAssignments(1);
    addStudents(2);
    sheet.setScore(1, 1, Score());
    answerAdd("Aaron", "Aa");
    mnuAddS(context);
    expectScores(1, {"0", "", "12"});
    EXPECT_EQ(sheet.score(1, 1), Score::zero());
    EXPECT_TRUE(sheet.score(1, 2).isEmpty());
}

TEST_F(StudentCommands, AddingCutsTheAliasToFifteenCharactersAndTheNameNever) {
    const std::string name(40, 'n');
    answerAdd(name, "0123456789abcdefghijklmnopqrstuvwxyzABCD");
    mnuAddS(context);
    EXPECT_EQ(sheet.studentName(1), name);
    EXPECT_EQ(sheet.studentAlias(1), "0123456789abcde");
}

TEST_F(StudentCommands, AddingSortsWithoutRegardToCase) {
    addStudents(2);
    answerAdd("student aa", "between");
    mnuAddS(context);
    EXPECT_EQ(sheet.studentName(2), "student aa");
    EXPECT_EQ(sheet.studentAlias(2), "between");
}

TEST_F(StudentCommands, AddingWithoutANameAddsNobodyAndMarksTheSheetUnsaved) {
    answerAdd("", "");
    expectAdditionCanceled();
    mnuAddS(context);
    EXPECT_EQ(sheet.studentCount(), 0);
    EXPECT_EQ(sheet.studentCountIfSet(), std::nullopt);
    EXPECT_TRUE(state.isDirty);
    EXPECT_TRUE(window.calls.empty());
}

TEST_F(StudentCommands, AddingWithoutAnAliasAddsNobodyAndMarksTheSheetUnsaved) {
    answerAdd("Doe, Jane", "");
    expectAdditionCanceled();
    mnuAddS(context);
    EXPECT_EQ(sheet.studentCount(), 0);
    EXPECT_TRUE(state.isDirty);
    EXPECT_TRUE(window.calls.empty());
}

TEST_F(StudentCommands, TheSheetIsMarkedUnsavedBeforeTheFirstQuestion) {
    answerAdd("", "");
    expectAdditionCanceled();
    bool dirtyInTheBox = false;
    dialogs.whileOpen([&] { dirtyInTheBox = state.isDirty; });
    mnuAddS(context);
    EXPECT_TRUE(dirtyInTheBox);
}

TEST_F(StudentCommands, EditingChangesNameAndAliasAndSortsAgain) {
    addAssignments(1);
    addStudents(3);
    answerEditNumber("1");
    answerEdit("Student A", "Zoe", "A", "Z");
    mnuEditS(context);
    EXPECT_EQ(sheet.studentName(1), "Student B");
    EXPECT_EQ(sheet.studentName(3), "Zoe");
    EXPECT_EQ(sheet.studentAlias(3), "Z");
    expectScores(1, {"12", "13", "11"});
    EXPECT_TRUE(state.isDirty);
    EXPECT_EQ(window.calls, Calls{"RefreshGrid"});
}

TEST_F(StudentCommands, EditingCutsNeitherTextWhateverThePromptSays) {
    addStudents(1);
    const std::string name(40, 'n');
    const std::string alias(30, 'a');
    answerEditNumber("1");
    answerEdit("Student A", name, "A", alias);
    mnuEditS(context);
    EXPECT_EQ(sheet.studentName(1), name);
    EXPECT_EQ(sheet.studentAlias(1), alias);
}

TEST_F(StudentCommands, EditingWithNcTwiceChangesNothingAndStillSorts) {
    sheet.addStudent("Zoe", "Z");
    sheet.addStudent("Ann", "A");
    answerEditNumber("1");
    answerEdit("Zoe", "nc", "Z", "nc");
    mnuEditS(context);
    EXPECT_EQ(sheet.studentName(1), "Ann");
    EXPECT_EQ(sheet.studentName(2), "Zoe");
    EXPECT_EQ(sheet.studentAlias(2), "Z");
    EXPECT_EQ(window.calls, Calls{"RefreshGrid"});
}

TEST_F(StudentCommands, OnlyTheLowerCaseNcKeepsAField) {
    addStudents(1);
    answerEditNumber("1");
    answerEdit("Student A", "NC", "A", "nc ");
    mnuEditS(context);
    EXPECT_EQ(sheet.studentName(1), "NC");
    EXPECT_EQ(sheet.studentAlias(1), "nc ");
}

TEST_F(StudentCommands, EditingWithoutANameSaysSoGoesOnAndEmptiesTheName) {
    addStudents(1);
    answerEditNumber("1");
    answerEdit("Student A", "", "A", "B");
    mnuEditS(context);
    EXPECT_EQ(sheet.studentName(1), "");
    EXPECT_EQ(sheet.studentAlias(1), "B");
    EXPECT_EQ(window.calls, Calls{"RefreshGrid"});
}

TEST_F(StudentCommands, EditingWithoutAnAliasSaysSoAndEmptiesTheAlias) {
    addStudents(1);
    answerEditNumber("1");
    answerEdit("Student A", "Ann", "A", "");
    mnuEditS(context);
    EXPECT_EQ(sheet.studentName(1), "Ann");
    EXPECT_EQ(sheet.studentAlias(1), "");
}

TEST_F(StudentCommands, EditingANumberAboveTheCountIsAskedAgainWithoutAWord) {
    addStudents(5);
    answerEditNumber("7");
    answerEditNumber("6");
    answerEditNumber("1e9 students");
    answerEdit("Student A", "nc", "A", "nc");
    mnuEditS(context);
}

TEST_F(StudentCommands, EditingANumberOfZeroOrLessIsComplainedAbout) {
    addStudents(5);
    for (const std::string_view answer : {"0", "-3", "", "abc", "0.4", "0.5", "-0.2"}) {
        answerEditNumber(answer);
        expectInvalidNumber(Answer::Ok);
    }
    answerEditNumber("2");
    answerEdit("Student B", "nc", "B", "nc");
    mnuEditS(context);
}

TEST_F(StudentCommands, EditingStopsWhenTheComplaintIsCancelled) {
    addStudents(5);
    answerEditNumber("7");
    answerEditNumber("-3");
    expectInvalidNumber(Answer::Ok);
    answerEditNumber("9");
    answerEditNumber("");
    expectInvalidNumber(Answer::Cancel);
    dialogs.expectMessage("Edit Student", "Student Editing Canceled");
    mnuEditS(context);
    EXPECT_EQ(sheet.studentName(1), "Student A");
    EXPECT_TRUE(state.isDirty);
    EXPECT_TRUE(window.calls.empty());
}

TEST_F(StudentCommands, EditingRoundsAFractionHalvesToEven) {
    addStudents(3);
    answerEditNumber("1.5 or so");
    answerEdit("Student B", "nc", "B", "nc");
    mnuEditS(context);
    answerEditNumber("2.5");
    answerEdit("Student B", "nc", "B", "nc");
    mnuEditS(context);
    answerEditNumber("3.5");
    answerEditNumber("3.4");
    answerEditNumber("2.6");
    answerEdit("Student C", "nc", "C", "nc");
    mnuEditS(context);
}

TEST_F(StudentCommands, EditingAnEmptyRosterIsRefusedAndMarksTheSheetUnsaved) {
    dialogs.expectMessage("Error", "There are no students to which you can edit.", Icon::Critical,
                          Buttons::Ok, Answer::Ok);
    mnuEditS(context);
    EXPECT_TRUE(state.isDirty);
    EXPECT_TRUE(window.calls.empty());
}

TEST_F(StudentCommands, RemovingTheFirstMovesAllButTheLastAssignmentsScores) {
    addAssignments(3);
    addStudents(3);
    answerRemoveNumber("1");
    mnuRemoveS(context);
    ASSERT_EQ(sheet.studentCount(), 2);
    EXPECT_EQ(sheet.studentName(1), "Student B");
    EXPECT_EQ(sheet.studentAlias(1), "B");
    EXPECT_EQ(sheet.studentName(2), "Student C");
    expectScores(1, {"12", "13"});
    expectScores(2, {"22", "23"});
    expectScores(3, {"31", "32"});
    EXPECT_TRUE(state.isDirty);
    EXPECT_EQ(window.calls, (Calls{"setStudentScrollMaximum 2", "RefreshGrid"}));
}

TEST_F(StudentCommands, RemovingWithASingleAssignmentMovesNoScoreAtAll) {
    addAssignments(1);
    addStudents(3);
    answerRemoveNumber("2");
    mnuRemoveS(context);
    EXPECT_EQ(sheet.studentName(2), "Student C");
    expectScores(1, {"11", "12"});
}

TEST_F(StudentCommands, RemovingTheLastOfTheRosterDropsItsRowOnly) {
    addAssignments(2);
    addStudents(3);
    answerRemoveNumber("3");
    mnuRemoveS(context);
    EXPECT_EQ(sheet.studentName(2), "Student B");
    expectScores(1, {"11", "12"});
    expectScores(2, {"21", "22"});
}

TEST_F(StudentCommands, RemovingTheOnlyStudentLeavesAnEmptyRoster) {
    addAssignments(2);
    addStudents(1);
    answerRemoveNumber("1");
    mnuRemoveS(context);
    EXPECT_EQ(sheet.studentCount(), 0);
    EXPECT_EQ(sheet.assignmentCount(), 2);
    EXPECT_EQ(window.calls, (Calls{"setStudentScrollMaximum 0", "RefreshGrid"}));
}

TEST_F(StudentCommands, RemovingSortsTheRoster) {
    for (const std::string_view name : {"Zoe", "Mia", "Ann"}) sheet.addStudent(name, name);
    answerRemoveNumber("2");
    mnuRemoveS(context);
    EXPECT_EQ(sheet.studentName(1), "Ann");
    EXPECT_EQ(sheet.studentName(2), "Zoe");
}

TEST_F(StudentCommands, RemovingComplainsAboutEveryInvalidNumber) {
    addStudents(3);
    for (const std::string_view answer : {"0", "-1", "", "abc", "4", "3.6", "0.5", "1000000"}) {
        answerRemoveNumber(answer);
        expectInvalidNumber(Answer::Ok);
    }
    answerRemoveNumber(" 2.5th");
    mnuRemoveS(context);
    ASSERT_EQ(sheet.studentCount(), 2);
    EXPECT_EQ(sheet.studentName(2), "Student C");
}

TEST_F(StudentCommands, RemovingStopsWhenTheComplaintIsCancelled) {
    addStudents(3);
    answerRemoveNumber("4");
    expectInvalidNumber(Answer::Cancel);
    dialogs.expectMessage("Remove Student", "Student removal Canceled");
    mnuRemoveS(context);
    EXPECT_EQ(sheet.studentCount(), 3);
    EXPECT_TRUE(state.isDirty);
    EXPECT_TRUE(window.calls.empty());
}

TEST_F(StudentCommands, RemovingFromAnEmptyRosterIsRefusedAndMarksTheSheetUnsaved) {
    dialogs.expectMessage("Error", "There are no students to remove", Icon::Critical, Buttons::Ok,
                          Answer::Ok);
    mnuRemoveS(context);
    EXPECT_TRUE(state.isDirty);
    EXPECT_TRUE(window.calls.empty());
}

}  // namespace
}  // namespace quorvel
