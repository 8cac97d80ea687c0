#include <random>

#include "core/Errors.h"
#include "core/GradeSheet.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

Score text(std::string_view value) {
    return Score::ofText(value);
}
const std::string longText = "a score with a remark of some length";

/// Students named after their numbers, assignments worth 10, and in each cell the text "a.s" of
/// its assignment and student.
GradeSheet sheetOf(int students, int assignments) {
    GradeSheet sheet;
    for (int s = 1; s <= students; ++s)
        sheet.addStudent("Student " + std::to_string(s), "S" + std::to_string(s));
    for (int a = 1; a <= assignments; ++a) sheet.addAssignment("A" + std::to_string(a), 10);
    for (int a = 1; a <= assignments; ++a)
        for (int s = 1; s <= students; ++s)
            sheet.setScore(a, s, text(std::to_string(a) + "." + std::to_string(s)));
    return sheet;
}

using Texts = std::vector<std::string>;

Texts names(const GradeSheet& sheet) {
    Texts result;
    for (int s = 1; s <= sheet.studentCount(); ++s) result.push_back(sheet.studentName(s));
    return result;
}

Texts aliases(const GradeSheet& sheet) {
    Texts result;
    for (int s = 1; s <= sheet.studentCount(); ++s) result.push_back(sheet.studentAlias(s));
    return result;
}

/// The cells of one assignment as texts, an empty one as "-".
Texts cells(const GradeSheet& sheet, int assignment) {
    Texts result;
    for (int s = 1; s <= sheet.studentCount(); ++s) {
        const Score score = sheet.score(assignment, s);
        result.push_back(score.isEmpty() ? "-" : score.text());
    }
    return result;
}

GradeSheet sheetOfNames(const Texts& studentNames) {
    GradeSheet sheet;
    sheet.addAssignment("Quiz", 10);
    for (const std::string& name : studentNames) {
        const int student = sheet.studentCount() + 1;
        sheet.addStudent(name, std::to_string(student));
        sheet.setScore(1, student, text(std::to_string(student)));
    }
    return sheet;
}

TEST(GradeSheet, IsEmptyAtFirstAndItsCountsWereNeverSet) {
    GradeSheet sheet;
    EXPECT_EQ(sheet.studentCount(), 0);
    EXPECT_EQ(sheet.assignmentCount(), 0);
    EXPECT_EQ(sheet.studentCountIfSet(), std::nullopt);
    EXPECT_EQ(sheet.assignmentCountIfSet(), std::nullopt);
    EXPECT_EQ(sheet.sheetTitle, "");
    EXPECT_EQ(sheet.classAverage(), std::nullopt);
    sheet.fillEmptyScores();
    sheet.sortRoster(CodePage::windows1252());
    sheet.recomputeFigures({});
    EXPECT_EQ(sheet.studentCount(), 0);
    EXPECT_EQ(sheet.studentCountIfSet(), std::nullopt);
}

TEST(GradeSheet, GivesEachStudentOneEmptyCellInTheFirstAssignment) {
    GradeSheet sheet;
    sheet.addStudent("Doe, Jane", "Jane");
    sheet.addStudent("Roe, Rick", "Rick");
    EXPECT_NE(sheet.studentCountIfSet(), std::nullopt);
    EXPECT_EQ(sheet.assignmentCountIfSet(), std::nullopt);
    sheet.addAssignment("Quiz", 20);
    EXPECT_NE(sheet.assignmentCountIfSet(), std::nullopt);
    EXPECT_EQ(sheet.assignmentName(1), "Quiz");
    EXPECT_EQ(sheet.assignmentValue(1), 20);
    EXPECT_EQ(cells(sheet, 1), (Texts{"-", "-"}));
    EXPECT_EQ(sheet.scores(1).storedCount(), 0);
}

TEST(GradeSheet, GivesANewStudentEmptyCells) {
    GradeSheet sheet = sheetOf(2, 2);
    sheet.addStudent("New", "N");
    EXPECT_EQ(cells(sheet, 1), (Texts{"1.1", "1.2", "-"}));
    EXPECT_EQ(cells(sheet, 2), (Texts{"2.1", "2.2", "-"}));
    EXPECT_EQ(sheet.figures(3), StudentFigures());
}

TEST(GradeSheet, ReplacesNamesValuesAndScoresInPlace) {
    GradeSheet sheet = sheetOf(2, 2);
    sheet.setStudent(2, std::string(300, 'n'), "alias");
    sheet.setAssignment(1, "Essay", -5);
    sheet.setScore(2, 1, Score::excused());
    sheet.setScore(2, 2, Score());
    EXPECT_EQ(names(sheet), (Texts{"Student 1", std::string(300, 'n')}));
    EXPECT_EQ(aliases(sheet), (Texts{"S1", "alias"}));
    EXPECT_EQ(sheet.assignmentName(1), "Essay");
    EXPECT_EQ(sheet.assignmentValue(1), -5);
    EXPECT_EQ(sheet.assignmentValue(2), 10);
    EXPECT_EQ(cells(sheet, 1), (Texts{"1.1", "1.2"}));
    EXPECT_EQ(cells(sheet, 2), (Texts{"E", "-"}));
}

TEST(GradeSheet, MakesTheSecondStudentTheFirstWhenTheFirstOfThreeGoes) {
    GradeSheet sheet = sheetOf(3, 3);
    sheet.removeStudent(1);
    EXPECT_EQ(names(sheet), (Texts{"Student 2", "Student 3"}));
    EXPECT_EQ(aliases(sheet), (Texts{"S2", "S3"}));
    EXPECT_EQ(cells(sheet, 1), (Texts{"1.2", "1.3"}));
    EXPECT_EQ(cells(sheet, 2), (Texts{"2.2", "2.3"}));
}

TEST(GradeSheet, LeavesTheLastAssignmentsColumnInPlaceWhenAStudentGoes) {
    GradeSheet sheet = sheetOf(4, 2);
    sheet.removeStudent(2);
    EXPECT_EQ(names(sheet), (Texts{"Student 1", "Student 3", "Student 4"}));
    EXPECT_EQ(cells(sheet, 1), (Texts{"1.1", "1.3", "1.4"}));
    EXPECT_EQ(cells(sheet, 2), (Texts{"2.1", "2.2", "2.3"}));
}

TEST(GradeSheet, LeavesTheOnlyAssignmentsColumnInPlaceWhenAStudentGoes) {
    GradeSheet sheet = sheetOf(3, 1);
    sheet.removeStudent(1);
    EXPECT_EQ(cells(sheet, 1), (Texts{"1.1", "1.2"}));
}

TEST(GradeSheet, DropsTheLastSlotOfTheLastColumnForGood) {
    GradeSheet sheet = sheetOf(2, 1);
    sheet.removeStudent(1);
    sheet.addStudent("New", "N");
    EXPECT_EQ(cells(sheet, 1), (Texts{"1.1", "-"}));
}

TEST(GradeSheet, MovesLongTextsWithTheirStudents) {
    GradeSheet sheet = sheetOf(3, 2);
    sheet.setScore(1, 3, text(longText));
    sheet.setScore(2, 3, text(longText));
    sheet.removeStudent(1);
    EXPECT_EQ(cells(sheet, 1), (Texts{"1.2", longText}));
    EXPECT_EQ(cells(sheet, 2), (Texts{"2.1", "2.2"}));
}

TEST(GradeSheet, KnowsItsCountsAfterTheLastStudentAndAssignmentAreGone) {
    GradeSheet sheet = sheetOf(1, 1);
    sheet.removeStudent(1);
    sheet.removeAssignment(1);
    EXPECT_EQ(sheet.studentCount(), 0);
    EXPECT_EQ(sheet.assignmentCount(), 0);
    EXPECT_NE(sheet.studentCountIfSet(), std::nullopt);
    EXPECT_NE(sheet.assignmentCountIfSet(), std::nullopt);
}

TEST(GradeSheet, RemovesAStudentWithoutAnyAssignment) {
    GradeSheet sheet = sheetOf(2, 0);
    sheet.removeStudent(2);
    EXPECT_EQ(names(sheet), (Texts{"Student 1"}));
}

TEST(GradeSheet, MovesLaterAssignmentsDownWhenOneGoes) {
    GradeSheet sheet = sheetOf(2, 3);
    sheet.setAssignment(3, "Final", 99);
    sheet.removeAssignment(1);
    EXPECT_EQ(sheet.assignmentCount(), 2);
    EXPECT_EQ(sheet.assignmentName(1), "A2");
    EXPECT_EQ(sheet.assignmentName(2), "Final");
    EXPECT_EQ(sheet.assignmentValue(2), 99);
    EXPECT_EQ(cells(sheet, 1), (Texts{"2.1", "2.2"}));
    EXPECT_EQ(cells(sheet, 2), (Texts{"3.1", "3.2"}));
}

TEST(GradeSheet, OnlyDropsTheLastAssignmentWhenThatGoes) {
    GradeSheet sheet = sheetOf(2, 2);
    sheet.removeAssignment(2);
    EXPECT_EQ(sheet.assignmentCount(), 1);
    EXPECT_EQ(cells(sheet, 1), (Texts{"1.1", "1.2"}));
}

TEST(GradeSheet, RefusesEveryNumberOutsideItsCounts) {
    GradeSheet sheet = sheetOf(2, 3);
    for (const int outside : {-1, 0, 3, 32768}) {
        EXPECT_THROW(sheet.studentName(outside), InternalError) << outside;
        EXPECT_THROW(sheet.studentAlias(outside), InternalError) << outside;
        EXPECT_THROW(sheet.figures(outside), InternalError) << outside;
        EXPECT_THROW(sheet.score(1, outside), InternalError) << outside;
        EXPECT_THROW(sheet.setScore(1, outside, Score()), InternalError) << outside;
        EXPECT_THROW(sheet.setStudent(outside, "n", "a"), InternalError) << outside;
        EXPECT_THROW(sheet.removeStudent(outside), InternalError) << outside;
    }
    for (const int outside : {-1, 0, 4, 32768}) {
        EXPECT_THROW(sheet.assignmentName(outside), InternalError) << outside;
        EXPECT_THROW(sheet.assignmentValue(outside), InternalError) << outside;
        EXPECT_THROW(sheet.scores(outside), InternalError) << outside;
        EXPECT_THROW(sheet.score(outside, 1), InternalError) << outside;
        EXPECT_THROW(sheet.setScore(outside, 1, Score()), InternalError) << outside;
        EXPECT_THROW(sheet.setAssignment(outside, "n", 1), InternalError) << outside;
        EXPECT_THROW(sheet.removeAssignment(outside), InternalError) << outside;
    }
    EXPECT_EQ(sheet.studentCount(), 2);
    EXPECT_EQ(sheet.assignmentCount(), 3);
}

TEST(GradeSheet, SaysWhichNumberIsOutside) {
    const GradeSheet sheet = sheetOf(2, 3);
    try {
        (void)sheet.studentName(7);
        FAIL() << "student 7 of 2 was not refused";
    } catch (const InternalError& error) {
        EXPECT_STREQ(error.what(), "Student 7 is outside 1 to 2.");
    }
}

TEST(GradeSheet, TakesNoMoreThanItsLargestCounts) {
    GradeSheet sheet;
    sheet.recreate(GradeSheet::maximumCount - 1, GradeSheet::maximumCount - 1);
    sheet.addStudent("Last", "L");
    sheet.addAssignment("Last", 1);
    EXPECT_THROW(sheet.addStudent("One more", "O"), SheetFullError);
    EXPECT_THROW(sheet.addAssignment("One more", 1), SheetFullError);
    EXPECT_EQ(sheet.studentCount(), 32767);
    EXPECT_EQ(sheet.assignmentCount(), 32767);
    try {
        sheet.addStudent("One more", "O");
    } catch (const SheetFullError& error) {
        EXPECT_STREQ(error.what(), "A grade sheet cannot hold more than 32767 students.");
    }
}

TEST(GradeSheet, StartsAnewWithOtherCounts) {
    GradeSheet sheet = sheetOf(3, 2);
    sheet.sheetTitle = "Math - 1";
    sheet.recreate(2, 3);
    EXPECT_EQ(sheet.sheetTitle, "Math - 1");
    EXPECT_EQ(names(sheet), (Texts{"", ""}));
    EXPECT_EQ(aliases(sheet), (Texts{"", ""}));
    EXPECT_EQ(sheet.assignmentCount(), 3);
    EXPECT_EQ(sheet.assignmentName(1), "");
    EXPECT_EQ(sheet.assignmentValue(1), 0);
    EXPECT_EQ(cells(sheet, 1), (Texts{"-", "-"}));
    EXPECT_NE(sheet.studentCountIfSet(), std::nullopt);
    EXPECT_NE(sheet.assignmentCountIfSet(), std::nullopt);
}

TEST(GradeSheet, ForgetsCountsThatAreNotGivenAnew) {
    GradeSheet sheet = sheetOf(3, 2);
    sheet.recreate(std::nullopt, 0);
    EXPECT_EQ(sheet.studentCount(), 0);
    EXPECT_EQ(sheet.studentCountIfSet(), std::nullopt);
    EXPECT_NE(sheet.assignmentCountIfSet(), std::nullopt);
    sheet.recreate(0, std::nullopt);
    EXPECT_NE(sheet.studentCountIfSet(), std::nullopt);
    EXPECT_EQ(sheet.assignmentCountIfSet(), std::nullopt);
}

TEST(GradeSheet, StopsCountsAtTheirLimits) {
    GradeSheet sheet;
    sheet.recreate(-3, 40000);
    EXPECT_EQ(sheet.studentCount(), 0);
    EXPECT_NE(sheet.studentCountIfSet(), std::nullopt);
    EXPECT_EQ(sheet.assignmentCount(), 32767);
}

TEST(GradeSheet, KeepsItsClassAverageWhenItStartsAnew) {
    GradeSheet sheet = sheetOf(1, 1);
    sheet.recomputeFigures({});
    ASSERT_TRUE(sheet.classAverage().has_value());
    sheet.recreate(0, 0);
    sheet.recomputeFigures({});
    EXPECT_TRUE(sheet.classAverage().has_value());
}

TEST(GradeSheet, StoresNothingForTheLargestCountsAlone) {
    GradeSheet sheet;
    sheet.recreate(GradeSheet::maximumCount, GradeSheet::maximumCount);
    sheet.setScore(32767, 32767, Score());
    sheet.sortRoster(CodePage::windows1252());
    sheet.recomputeFigures({});
    EXPECT_EQ(sheet.scores(32767).storedCount(), 0);
    EXPECT_EQ(sheet.figures(32767).percentageTenths, 1000);
    EXPECT_EQ(sheet.score(32767, 32767), Score());
}

TEST(GradeSheet, FillsOnlyEmptyCellsWithTheNumberZero) {
    GradeSheet sheet = sheetOf(4, 2);
    sheet.setScore(1, 1, Score());
    sheet.setScore(1, 2, Score::excused());
    sheet.setScore(1, 3, text(""));
    sheet.setScore(1, 4, Score());
    sheet.addAssignment("New", 5);
    sheet.fillEmptyScores();
    EXPECT_EQ(sheet.score(1, 1), Score::zero());
    EXPECT_EQ(sheet.score(1, 2), Score::excused());
    EXPECT_EQ(sheet.score(1, 3), text(""));
    EXPECT_EQ(sheet.score(1, 4), Score::zero());
    EXPECT_EQ(cells(sheet, 2), (Texts{"2.1", "2.2", "2.3", "2.4"}));
    for (int s = 1; s <= 4; ++s) EXPECT_EQ(sheet.score(3, s), Score::zero()) << s;
}

TEST(GradeSheet, FillsTheLargestSheetWithoutAnyMemoryForItsCells) {
    GradeSheet sheet;
    sheet.recreate(GradeSheet::maximumCount, GradeSheet::maximumCount);
    sheet.setScore(2, 2, text("7"));
    sheet.fillEmptyScores();
    EXPECT_EQ(sheet.score(32767, 32767), Score::zero());
    EXPECT_EQ(sheet.scores(32767).storedCount(), 0);
    EXPECT_EQ(sheet.scores(2).storedCount(), 2);
    EXPECT_EQ(sheet.score(2, 1), Score::zero());
}

TEST(GradeSheet, GivesANewStudentEmptyCellsBehindZerosToo) {
    GradeSheet sheet;
    sheet.addStudent("Doe", "D");
    sheet.addAssignment("Quiz", 10);
    sheet.fillEmptyScores();
    sheet.addStudent("Roe", "R");
    EXPECT_EQ(cells(sheet, 1), (Texts{"0", "-"}));
}

TEST(GradeSheet, TakesOverARosterAndTheLastAssignmentOfAnotherSheet) {
    GradeSheet other = sheetOf(3, 3);
    other.sheetTitle = "Other";
    other.setAssignment(2, "Other second", 77);
    GradeSheet sheet = sheetOf(1, 2);
    sheet.setAssignment(1, "First", 11);
    sheet.recomputeFigures({});
    const std::optional<ClassAverage> average = sheet.classAverage();
    sheet.takeOverRoster(other);
    EXPECT_EQ(sheet.sheetTitle, "Other");
    EXPECT_EQ(names(sheet), names(other));
    EXPECT_EQ(aliases(sheet), aliases(other));
    EXPECT_EQ(sheet.assignmentCount(), 2);
    EXPECT_EQ(sheet.assignmentName(1), "First");
    EXPECT_EQ(sheet.assignmentValue(1), 11);
    EXPECT_EQ(sheet.assignmentName(2), "Other second");
    EXPECT_EQ(sheet.assignmentValue(2), 77);
    EXPECT_EQ(cells(sheet, 1), (Texts{"-", "-", "-"}));
    EXPECT_EQ(sheet.classAverage(), average);
}

TEST(GradeSheet, KeepsItsLastAssignmentWhereTheOtherSheetHasFewer) {
    GradeSheet sheet = sheetOf(1, 2);
    sheet.takeOverRoster(sheetOf(2, 1));
    EXPECT_EQ(sheet.assignmentName(1), "A1");
    EXPECT_EQ(sheet.assignmentName(2), "A2");
}

TEST(GradeSheet, TakesOverThatARosterWasNeverSet) {
    GradeSheet sheet = sheetOf(2, 0);
    sheet.takeOverRoster(GradeSheet());
    EXPECT_EQ(sheet.studentCountIfSet(), std::nullopt);
    EXPECT_EQ(sheet.assignmentCountIfSet(), std::nullopt);
}

TEST(RosterSort, PutsNamesIntoOrderWithoutRegardToCase) {
    GradeSheet sheet = sheetOfNames({"roe, rick", "DOE, JANE", "Adams, Al", "doe, jane"});
    sheet.sortRoster(CodePage::windows1252());
    EXPECT_EQ(names(sheet), (Texts{"Adams, Al", "DOE, JANE", "doe, jane", "roe, rick"}));
    EXPECT_EQ(aliases(sheet), (Texts{"3", "2", "4", "1"}));
    EXPECT_EQ(cells(sheet, 1), (Texts{"3", "2", "4", "1"}));
}

TEST(RosterSort, PutsANameThatDiffersOnlyInCaseNextToItsEqual) {
    GradeSheet sheet = sheetOfNames({"Adams", "Doe", "Roe", "DOE"});
    sheet.sortRoster(CodePage::windows1252());
    EXPECT_EQ(names(sheet), (Texts{"Adams", "Doe", "DOE", "Roe"}));
}

TEST(RosterSort, KeepsStudentsOfEqualNameInTheirOrder) {
    GradeSheet sheet = sheetOfNames({"\xE9t\xE9", "b", "\xC9T\xC9", "B", "\xC9t\xC9", "b"});
    sheet.sortRoster(CodePage::windows1252());
    EXPECT_EQ(aliases(sheet), (Texts{"2", "4", "6", "1", "3", "5"}));
    EXPECT_EQ(cells(sheet, 1), (Texts{"2", "4", "6", "1", "3", "5"}));
}

TEST(RosterSort, OrdersAccentsByTheirUpperCaseBytes) {
    GradeSheet sheet = sheetOfNames({"\xFF", "\xE0", "z", "\237a", "\300a"});
    sheet.sortRoster(CodePage::windows1252());
    EXPECT_EQ(aliases(sheet), (Texts{"3", "1", "4", "2", "5"}));
}

TEST(RosterSort, MovesFiguresEmptyCellsAndLongTextsAlong) {
    GradeSheet sheet = sheetOfNames({"c", "b", "a"});
    sheet.addAssignment("Essay", 10);
    sheet.setScore(2, 1, text(longText));
    sheet.setScore(1, 2, Score());
    sheet.recomputeFigures({});
    const StudentFigures figures = sheet.figures(3);
    sheet.sortRoster(CodePage::windows1252());
    EXPECT_EQ(cells(sheet, 1), (Texts{"3", "-", "1"}));
    EXPECT_EQ(cells(sheet, 2), (Texts{"-", "-", longText}));
    EXPECT_EQ(sheet.figures(1), figures);
}

TEST(RosterSort, LeavesAnOrderedRosterAlone) {
    GradeSheet sheet = sheetOfNames({"", "a", "A", "b"});
    sheet.sortRoster(CodePage::windows1252());
    EXPECT_EQ(aliases(sheet), (Texts{"1", "2", "3", "4"}));
}

TEST(RosterSort, UsesTheCodePageThatItIsGiven) {
    CodePage::UnicodeTable unicode{};
    CodePage::UpperCaseTable upperCase{};
    for (std::size_t byte = 0; byte < 256; ++byte) upperCase[byte] = static_cast<char>(byte);
    const CodePage caseSensitive(unicode, upperCase);
    GradeSheet sheet = sheetOfNames({"a", "B"});
    sheet.sortRoster(caseSensitive);
    EXPECT_EQ(names(sheet), (Texts{"B", "a"}));
}

TEST(RosterSort, KeepsEveryStudentWithItsScores) {
    std::mt19937 random(5);
    Texts studentNames;
    for (int i = 0; i < 500; ++i) studentNames.push_back(std::to_string(random() % 100));
    GradeSheet sheet = sheetOfNames(studentNames);
    sheet.sortRoster(CodePage::windows1252());
    for (int s = 1; s <= 500; ++s) {
        const auto original = static_cast<std::size_t>(std::stoi(sheet.studentAlias(s)));
        EXPECT_EQ(sheet.studentName(s), studentNames[original - 1]);
        EXPECT_EQ(sheet.score(1, s).text(), sheet.studentAlias(s));
        if (s == 1) continue;
        EXPECT_LE(sheet.studentName(s - 1), sheet.studentName(s));
        if (sheet.studentName(s - 1) != sheet.studentName(s)) continue;
        EXPECT_LT(std::stoi(sheet.studentAlias(s - 1)), std::stoi(sheet.studentAlias(s)));
    }
}

}  // namespace
}  // namespace quorvel
