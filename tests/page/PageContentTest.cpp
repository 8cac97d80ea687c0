#include <algorithm>

#include <gtest/gtest.h>

#include "page/PageContent.h"

namespace quorvel {
namespace {

class PageContentTest : public testing::Test {
  protected:
    PageContentTest() {
        sheet_.sheetTitle = "Math";
        for (const auto& [name, alias] : {std::pair{"Doe", "One"}, {"Roe", ""}, {" ", "Three"}}) {
            sheet_.addStudent(name, alias);
        }
        for (const auto& [name, value] :
             {std::pair{"Quiz", 20}, {"", 0}, {"Essay", 50}, {"Later", 10}}) {
            sheet_.addAssignment(name, static_cast<std::int16_t>(value));
        }
        set(1, 1, "17");
        set(1, 2, "E");
        set(1, 3, "10");
        set(2, 1, "3");
        set(3, 1, "50");
        set(3, 3, "40.25");
        sheet_.recomputeFigures(scale_);
    }

    void set(int assignment, int student, std::string_view text) {
        sheet_.setScore(assignment, student, Score::ofText(text));
    }

    ClassContent content(bool useAliases = false) const {
        return classContent(sheet_, choice(useAliases));
    }
    PageChoice choice(bool useAliases = false) const {
        return {.codePage = CodePage::windows1252(),
                .scale = scale_,
                .heading = {"School", "Teacher", "Today"},
                .titleOtherwise = "file",
                .useAliases = useAliases};
    }

    GradingScale scale_;
    GradeSheet sheet_;
};

TEST_F(PageContentTest, FiguresAreThoseOfTheSheet) {
    const ClassContent shown = content();
    EXPECT_EQ(shown.title, "Math");
    EXPECT_EQ(shown.heading.school, "School");
    EXPECT_EQ(shown.average, sheet_.classAverage());
    EXPECT_EQ(shown.limits, (LetterLimits{940, 860, 760, 700, 600}));
    ASSERT_EQ(shown.students.size(), 3U);
    for (int student = 1; student <= 3; ++student) {
        const StudentEntry& entry = shown.students[static_cast<std::size_t>(student) - 1];
        EXPECT_EQ(entry.number, student);
        EXPECT_EQ(entry.figures, sheet_.figures(student));
    }
    // 70 of 80, 0 of 60, 50 of 80
    EXPECT_EQ(shown.letterCounts, (std::array<int, 6>{0, 1, 0, 0, 1, 1}));
}

TEST_F(PageContentTest, RoundingUpLowersTheLimits) {
    scale_.roundUp = GradingScale::roundUpOn;
    EXPECT_EQ(content().limits, (LetterLimits{935, 855, 755, 695, 595}));
}

TEST_F(PageContentTest, CellsHaveTheirKindAndPercentage) {
    const std::vector<StudentEntry> students = content().students;
    EXPECT_EQ(students[0].cell(1).text, "17");
    EXPECT_EQ(students[0].cell(1).percentage, 850);
    EXPECT_EQ(students[0].cell(2).kind, CellKind::Scored);
    EXPECT_EQ(students[0].cell(2).percentage, std::nullopt);  // the value is 0
    EXPECT_EQ(students[0].cell(4).kind, CellKind::Empty);
    EXPECT_EQ(students[1].cell(1).kind, CellKind::Excused);
    EXPECT_EQ(students[1].cell(1).percentage, std::nullopt);
    EXPECT_EQ(students[2].cell(3).percentage, 805);
    EXPECT_EQ(students[0].cells.size(), 3U);
    EXPECT_EQ(students[1].cells.size(), 1U);
    EXPECT_EQ(content().lastAssignment, 3);
}

TEST_F(PageContentTest, AssignmentsCountExcusedAndEmptyApart) {
    const std::vector<AssignmentEntry> assignments = content().assignments;
    ASSERT_EQ(assignments.size(), 4U);
    const AssignmentEntry& quiz = assignments[0];
    EXPECT_EQ(quiz.averagePercentage, 675);
    EXPECT_EQ(quiz.spread, (Spread{500, 587, 675, 762, 850}));
    EXPECT_EQ(quiz.scoredCount, 2);
    EXPECT_EQ(quiz.excusedCount, 1);
    EXPECT_EQ(quiz.emptyCount, 0);
    const AssignmentEntry& worthless = assignments[1];
    EXPECT_EQ(worthless.name, "Assignment 2");
    EXPECT_EQ(worthless.averagePercentage, std::nullopt);
    EXPECT_EQ(worthless.spread, std::nullopt);
    EXPECT_EQ(worthless.scoredCount, 1);
    EXPECT_EQ(worthless.emptyCount, 2);
    EXPECT_EQ(assignments[3].spread, std::nullopt);
    EXPECT_EQ(assignments[3].emptyCount, 3);
}

TEST_F(PageContentTest, GapsAreTheEmptyCellsByStudentAndByAssignment) {
    const ClassContent shown = content();
    EXPECT_EQ(shown.emptyCount, 6);
    EXPECT_EQ(shown.excusedCount, 1);
    ASSERT_EQ(shown.gapsByStudent.size(), 3U);
    EXPECT_EQ(shown.gapsByStudent[0].number, 2);
    EXPECT_EQ(shown.missingCount, 4);  // all but two of the assignment that is worth 0
    EXPECT_EQ(shown.gapsByStudent[0].count, 2);
    EXPECT_EQ(shown.gapsByStudent[0].others, (std::vector<int>{3, 4}));
    EXPECT_EQ(shown.gapsByStudent[1].number, 1);
    EXPECT_EQ(shown.gapsByStudent[1].others, (std::vector<int>{4}));
    EXPECT_EQ(shown.gapsByStudent[2].others, (std::vector<int>{4}));
    ASSERT_EQ(shown.gapsByAssignment.size(), 2U);
    EXPECT_EQ(shown.gapsByAssignment[0].number, 3);
    EXPECT_EQ(shown.gapsByAssignment[0].others, (std::vector<int>{2}));
    EXPECT_EQ(shown.gapsByAssignment[1].count, 3);
    EXPECT_EQ(shown.gapsByAssignment[1].others, (std::vector<int>{1, 2, 3}));
}

TEST_F(PageContentTest, GapsAddUpToTheSameBothWaysAndNoneIsOfAnAssignmentWorthNothing) {
    const auto sum = [](const std::vector<Gap>& gaps) {
        std::int64_t cells = 0;
        for (const Gap& gap : gaps) cells += gap.count;
        return cells;
    };
    for (const std::int16_t value : {std::int16_t{0}, std::int16_t{1}}) {
        sheet_.setAssignment(2, "Bonus", value);
        const ClassContent shown = content();
        EXPECT_EQ(shown.emptyCount, 6);
        EXPECT_EQ(shown.missingCount, value == 0 ? 4 : 6);
        EXPECT_EQ(sum(shown.gapsByStudent), shown.missingCount);
        EXPECT_EQ(sum(shown.gapsByAssignment), shown.missingCount);
    }
}

TEST_F(PageContentTest, ManyGapsAreCountedAndTheFirstNamed) {
    sheet_.recreate(100, 70);
    for (int number = 1; number <= 70; ++number) sheet_.setAssignment(number, "", 10);
    const ClassContent shown = content();
    EXPECT_EQ(shown.gapsByStudent[0].count, 70);
    EXPECT_EQ(shown.gapsByStudent[0].others.size(), Gap::mostNamed);
    EXPECT_EQ(shown.gapsByAssignment[0].count, 100);
    EXPECT_EQ(shown.gapsByAssignment[0].others.size(), Gap::mostNamed);
}

TEST_F(PageContentTest, BlankNamesAreNumbers) {
    EXPECT_EQ(content().students[2].name, "Student 3");
    EXPECT_EQ(content(true).students[1].name, "Student 2");
    sheet_.sheetTitle = "  ";
    EXPECT_EQ(content().title, "file");
}

TEST_F(PageContentTest, WithAliasesThereIsNoNameAnywhere) {
    const ClassContent shown = content(true);
    EXPECT_EQ(shown.students[0].name, "One");
    EXPECT_EQ(studentContent(sheet_, 1, choice(true)).student.name, "One");
}

TEST_F(PageContentTest, OneStudentsContentIsTheirsAndTheClassAverage) {
    const StudentContent shown = studentContent(sheet_, 3, choice());
    EXPECT_EQ(shown.student.figures, sheet_.figures(3));
    EXPECT_EQ(shown.student.missingCount, 1);
    EXPECT_EQ(shown.average, sheet_.classAverage());
    ASSERT_EQ(shown.assignments.size(), 4U);
    EXPECT_EQ(shown.assignments[2].value, 50);
    EXPECT_EQ(shown.student.cell(3).text, "40.25");
}

TEST_F(PageContentTest, HugeScoresStopSomewhere) {
    set(1, 1, std::string(124, '9'));
    EXPECT_EQ(content().students[0].cell(1).percentage, 1'000'000'000'000'000);
}

}  // namespace
}  // namespace quorvel
