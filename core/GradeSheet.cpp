#include "core/GradeSheet.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "core/Errors.h"
#include "core/Grades.h"
#include "core/Numbers.h"
#include "core/Ranks.h"

namespace quorvel {

namespace {

[[noreturn]] void refuseNumber(const char* what, int number, int count) {
    throw InternalError(std::string(what) + " " + std::to_string(number) + " is outside 1 to " +
                        std::to_string(count) + ".");
}

void checkNumber(const char* what, int number, int count) {
    if (number < 1 || number > count) refuseNumber(what, number, count);
}

void checkRoom(const char* what, int count) {
    if (count >= GradeSheet::maximumCount)
        throw SheetFullError("A grade sheet cannot hold more than " +
                             std::to_string(GradeSheet::maximumCount) + " " + what + ".");
}

std::size_t clampedCount(std::optional<int> count) {
    return static_cast<std::size_t>(std::clamp(count.value_or(0), 0, GradeSheet::maximumCount));
}

/// The students' numbers in the order of their keys, equal keys as they stand.
std::vector<int> orderOf(const std::vector<std::string>& keys) {
    std::vector<int> order(keys.size());
    std::iota(order.begin(), order.end(), 1);
    std::ranges::stable_sort(order, {}, [&keys](int student) -> const std::string& {
        return keys[static_cast<std::size_t>(student) - 1];
    });
    return order;
}

}  // namespace

const GradeSheet::Student& GradeSheet::at(int student) const {
    checkNumber("Student", student, studentCount());
    return students_[static_cast<std::size_t>(student) - 1];
}

GradeSheet::Student& GradeSheet::at(int student) {
    return const_cast<Student&>(std::as_const(*this).at(student));
}

const GradeSheet::Assignment& GradeSheet::column(int assignment) const {
    checkNumber("Assignment", assignment, assignmentCount());
    return assignments_[static_cast<std::size_t>(assignment) - 1];
}

GradeSheet::Assignment& GradeSheet::column(int assignment) {
    return const_cast<Assignment&>(std::as_const(*this).column(assignment));
}

Score GradeSheet::score(int assignment, int student) const {
    const Assignment& found = column(assignment);
    checkNumber("Student", student, studentCount());
    return found.scores.score(student);
}

std::optional<int> GradeSheet::studentCountIfSet() const {
    return studentCountIsSet_ ? std::optional(studentCount()) : std::nullopt;
}

std::optional<int> GradeSheet::assignmentCountIfSet() const {
    return assignmentCountIsSet_ ? std::optional(assignmentCount()) : std::nullopt;
}

void GradeSheet::setStudent(int student, std::string_view name, std::string_view alias) {
    Student& changed = at(student);
    changed.name = name;
    changed.alias = alias;
}

void GradeSheet::setAssignment(int assignment, std::string_view name, std::int16_t value) {
    Assignment& changed = column(assignment);
    changed.name = name;
    changed.value = value;
}

void GradeSheet::setScore(int assignment, int student, const TaggedView& value) {
    Assignment& changed = column(assignment);
    checkNumber("Student", student, studentCount());
    changed.scores.setValue(student, value);
}

void GradeSheet::setScores(int assignment, int firstStudent, std::span<const SmallValue> values) {
    Assignment& changed = column(assignment);
    checkNumber("Student", firstStudent, studentCount());
    checkNumber("Student", firstStudent + static_cast<int>(values.size()) - 1, studentCount());
    changed.scores.reserve(studentCount());
    changed.scores.setValues(firstStudent, values);
}

void GradeSheet::addStudent(std::string_view name, std::string_view alias) {
    checkRoom("students", studentCount());
    students_.push_back({.name = std::string(name), .alias = std::string(alias), .figures = {}});
    studentCountIsSet_ = true;
}

void GradeSheet::removeStudent(int student) {
    checkNumber("Student", student, studentCount());
    students_.erase(students_.begin() + student - 1);
    if (assignments_.empty()) return;
    for (std::size_t i = 0; i + 1 < assignments_.size(); ++i)
        assignments_[i].scores.remove(student);
    // The last column stays where it is, on purpose: see the header.
    assignments_.back().scores.shrinkTo(studentCount());
}

void GradeSheet::addAssignment(std::string_view name, std::int16_t value) {
    checkRoom("assignments", assignmentCount());
    assignments_.push_back({.name = std::string(name), .value = value, .scores = {}});
    assignmentCountIsSet_ = true;
}

void GradeSheet::removeAssignment(int assignment) {
    checkNumber("Assignment", assignment, assignmentCount());
    assignments_.erase(assignments_.begin() + assignment - 1);
}

void GradeSheet::recreate(std::optional<int> studentCount, std::optional<int> assignmentCount) {
    students_.assign(clampedCount(studentCount), {});
    assignments_.assign(clampedCount(assignmentCount), {});
    studentCountIsSet_ = studentCount.has_value();
    assignmentCountIsSet_ = assignmentCount.has_value();
}

void GradeSheet::replaceBy(GradeSheet other) {
    other.classAverage_ = classAverage_;
    *this = std::move(other);
}

void GradeSheet::takeOverRoster(const GradeSheet& other) {
    GradeSheet taken;
    taken.sheetTitle = other.sheetTitle;
    taken.recreate(other.studentCountIfSet(), assignmentCountIfSet());
    for (int student = 1; student <= other.studentCount(); ++student)
        taken.setStudent(student, other.studentName(student), other.studentAlias(student));
    const int last = assignmentCount();
    for (int number = 1; number <= last; ++number) {
        const bool isTakenOver = number == last && number <= other.assignmentCount();
        const Assignment& source = (isTakenOver ? other : *this).column(number);
        taken.setAssignment(number, source.name, source.value);
    }
    replaceBy(std::move(taken));
}

void GradeSheet::fillEmptyScores() {
    for (Assignment& assignment : assignments_) assignment.scores.fillEmpty(studentCount());
}

void GradeSheet::sortRoster(const CodePage& codePage) {
    std::vector<std::string> keys;
    keys.reserve(students_.size());
    for (const Student& student : students_) keys.push_back(codePage.upperCase(student.name));
    if (std::ranges::is_sorted(keys)) return;

    const std::vector<int> order = orderOf(keys);
    std::vector<Student> sorted;
    sorted.reserve(students_.size());
    for (const int student : order) sorted.push_back(std::move(at(student)));
    students_ = std::move(sorted);
    for (Assignment& assignment : assignments_) assignment.scores.reorder(order);
}

void GradeSheet::recomputeFigures(const GradingScale& scale) {
    if (students_.empty()) return;
    std::vector<std::int16_t> earned(students_.size());
    std::vector<std::int16_t> possible(students_.size());
    for (const Assignment& assignment : assignments_)
        assignment.scores.addPoints(assignment.value, earned, possible);

    const LetterThresholds thresholds(scale);
    std::vector<std::int32_t> percentages(students_.size());
    std::int64_t sum = 0;
    for (std::size_t i = 0; i < students_.size(); ++i) {
        percentages[i] = percentageTenths(earned[i], possible[i]);
        sum += percentages[i];
    }
    const std::vector<int> ranks = ranksOf(percentages);
    for (std::size_t i = 0; i < students_.size(); ++i)
        students_[i].figures = {.pointsEarned = earned[i],
                                .pointsPossible = possible[i],
                                .percentageTenths = percentages[i],
                                .letterGrade = thresholds.letterFor(percentages[i]),
                                .rank = ranks[i]};

    const std::int64_t average = divideHalfEven(sum, studentCount());
    classAverage_ = {.tenths = average, .letterGrade = thresholds.letterFor(average)};
}

}  // namespace quorvel
