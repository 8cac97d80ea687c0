#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/CodePage.h"
#include "core/GradingScale.h"
#include "core/Score.h"
#include "core/ScoreColumn.h"

namespace quorvel {

/// What the scores of one student come to, as last computed.
struct StudentFigures {
    std::int16_t pointsEarned = 0;
    std::int16_t pointsPossible = 0;
    std::int32_t percentageTenths = 0;
    LetterGrade letterGrade = LetterGrade::F;
    int rank = 0;  // 1 is the best percentage; equal percentages share the better rank

    bool operator==(const StudentFigures&) const = default;
};

/// The average of all students' percentages, as last computed.
struct ClassAverage {
    std::int64_t tenths = 0;
    LetterGrade letterGrade = LetterGrade::F;

    bool operator==(const ClassAverage&) const = default;
};

/// The open document: a class with its roster, its assignments and one score for every pair of
/// them. Students and assignments are numbered from 1. Every access outside 1 to the count throws
/// InternalError.
class GradeSheet {
  public:
    static constexpr int maximumCount = 32767;

    int studentCount() const { return static_cast<int>(students_.size()); }
    int assignmentCount() const { return static_cast<int>(assignments_.size()); }
    /// The counts as a file holds them: nothing on a sheet that never had a student (an
    /// assignment).
    std::optional<int> studentCountIfSet() const;
    std::optional<int> assignmentCountIfSet() const;

    std::string sheetTitle;

    const std::string& studentName(int student) const { return at(student).name; }
    const std::string& studentAlias(int student) const { return at(student).alias; }
    const std::string& assignmentName(int assignment) const { return column(assignment).name; }
    std::int16_t assignmentValue(int assignment) const { return column(assignment).value; }
    Score score(int assignment, int student) const;
    const ScoreColumn& scores(int assignment) const { return column(assignment).scores; }

    void setStudent(int student, std::string_view name, std::string_view alias);
    void setAssignment(int assignment, std::string_view name, std::int16_t value);
    void setScore(int assignment, int student, const TaggedView& value);
    void setScore(int assignment, int student, const Score& score) {
        setScore(assignment, student, score.view());
    }
    /// The scores of neighbouring students, at least one.
    void setScores(int assignment, int firstStudent, std::span<const SmallValue> values);

    /// The new student's cells are empty. Throws SheetFullError.
    void addStudent(std::string_view name, std::string_view alias);
    /// Every later student moves up by one, with its scores in all assignments but the last: that
    /// column keeps the removed row's order.
    void removeStudent(int student);
    /// The new assignment's cells are empty. Throws SheetFullError.
    void addAssignment(std::string_view name, std::int16_t value);
    /// Every later assignment moves down by one, with its scores.
    void removeAssignment(int assignment);

    /// Discards everything but the title and the class average, and makes a sheet of these sizes:
    /// nameless students and assignments, empty cells. A count that is not given was never set and
    /// is 0; one outside 0 to the maximum stops there.
    void recreate(std::optional<int> studentCount, std::optional<int> assignmentCount);

    /// Becomes `other`; the class average stays the one that was computed last.
    void replaceBy(GradeSheet other);

    /// Gives the sheet the title and the roster of `other`. Its own assignments stay, without a
    /// score, but for the last one: that becomes what `other` has in its place. The class average
    /// stays. A sheet that finds no memory stays as it was.
    void takeOverRoster(const GradeSheet& other);

    /// Puts the whole number 0 into every empty cell. Takes no memory.
    void fillEmptyScores();

    /// Puts the roster into the alphabetical order of full names without regard to case, each
    /// student's alias and scores moving along. Students of equal name keep their order.
    void sortRoster(const CodePage& codePage);

    const StudentFigures& figures(int student) const { return at(student).figures; }
    /// Nothing until it was first computed for a class that has students.
    const std::optional<ClassAverage>& classAverage() const { return classAverage_; }

    /// Computes every student's figures and rank and the class average anew. Without students the
    /// class average stays as it was.
    void recomputeFigures(const GradingScale& scale);

  private:
    struct Student {
        std::string name;
        std::string alias;
        StudentFigures figures;
    };
    struct Assignment {
        std::string name;
        std::int16_t value = 0;
        ScoreColumn scores;
    };

    const Student& at(int student) const;
    Student& at(int student);
    const Assignment& column(int assignment) const;
    Assignment& column(int assignment);

    std::vector<Student> students_;
    std::vector<Assignment> assignments_;
    std::optional<ClassAverage> classAverage_;
    bool studentCountIsSet_ = false;
    bool assignmentCountIsSet_ = false;
};

}  // namespace quorvel
