#include "core/Numbers.h"
#include "core/Paths.h"
#include "tests/scenario/Comparison.h"
#include "tests/scenario/Texts.h"

namespace quorvel::scenario {

namespace {

/// A cell as a scenario writes it.
std::string cellText(const TaggedValue& value, std::string_view programFolder) {
    if (std::holds_alternative<std::monostate>(value)) return "empty";
    if (const auto* text = std::get_if<std::string>(&value))
        return "text " + quoted(*text, programFolder);
    return "number " + textOf(value);
}

}  // namespace

const GradeSheet* Comparison::sheetWith(int student, int assignment) const {
    const GradeSheet* sheet = driver_.sheet();
    if (sheet == nullptr) return nullptr;
    if (student < 0 || student > sheet->studentCount())
        throw ScenarioError("there are only " + std::to_string(sheet->studentCount()) +
                            " students");
    if (assignment < 0 || assignment > sheet->assignmentCount())
        throw ScenarioError("there are only " + std::to_string(sheet->assignmentCount()) +
                            " assignments");
    return sheet;
}

Outcome Comparison::operator()(const Count& expected) const {
    int count = 0;
    if (expected.of == Count::Of::PrintedPages) {
        const auto job = lastJob();
        if (!job) return cannotBeSeen();
        count = static_cast<int>(job->pages.size());
    } else {
        const GradeSheet* sheet = driver_.sheet();
        if (sheet == nullptr) return cannotBeSeen();
        count =
            expected.of == Count::Of::Students ? sheet->studentCount() : sheet->assignmentCount();
    }
    return whether(count == expected.count, std::to_string(count));
}

Outcome Comparison::operator()(const SheetTitle& expected) const {
    const GradeSheet* sheet = driver_.sheet();
    if (sheet == nullptr) return cannotBeSeen();
    return compareText(expected.title, sheet->sheetTitle);
}

Outcome Comparison::operator()(const StudentIs& expected) const {
    const GradeSheet* sheet = sheetWith(expected.student, 0);
    if (sheet == nullptr) return cannotBeSeen();
    const std::string& name = sheet->studentName(expected.student);
    const std::string& alias = sheet->studentAlias(expected.student);
    return whether(name == expected.name && alias == expected.alias,
                   quotedText(name) + " " + quotedText(alias));
}

Outcome Comparison::operator()(const AssignmentIs& expected) const {
    const GradeSheet* sheet = sheetWith(0, expected.assignment);
    if (sheet == nullptr) return cannotBeSeen();
    const std::string& name = sheet->assignmentName(expected.assignment);
    const int value = sheet->assignmentValue(expected.assignment);
    return whether(name == expected.name && value == expected.value,
                   quotedText(name) + " " + std::to_string(value));
}

Outcome Comparison::operator()(const CellIs& expected) const {
    const GradeSheet* sheet = sheetWith(expected.student, expected.assignment);
    if (sheet == nullptr) return cannotBeSeen();
    std::string wanted = "empty";
    if (expected.kind == CellIs::Kind::Number) wanted = "number " + expected.value;
    if (expected.kind == CellIs::Kind::Text) wanted = "text " + quotedText(expected.value);
    const Score score = sheet->score(expected.assignment, expected.student);
    const std::string cell = cellText(score.value(), programFolder_);
    return whether(cell == wanted, cell);
}

Outcome Comparison::operator()(const FiguresAre& expected) const {
    const GradeSheet* sheet = sheetWith(expected.student, 0);
    if (sheet == nullptr) return cannotBeSeen();
    const StudentFigures& figures = sheet->figures(expected.student);
    const std::string percentage = tenthsText(figures.percentageTenths);
    const std::string grade = letterText(figures.letterGrade);
    const bool same =
        expected.earned.value_or(figures.pointsEarned) == figures.pointsEarned &&
        expected.possible.value_or(figures.pointsPossible) == figures.pointsPossible &&
        expected.percentage.value_or(percentage) == percentage &&
        expected.grade.value_or(grade) == grade &&
        expected.rank.value_or(figures.rank) == figures.rank;
    return whether(same, "earned " + std::to_string(figures.pointsEarned) + " possible " +
                             std::to_string(figures.pointsPossible) + " percentage " + percentage +
                             " grade " + grade + " rank " + std::to_string(figures.rank));
}

Outcome Comparison::operator()(const AverageIs& expected) const {
    const GradeSheet* sheet = driver_.sheet();
    if (sheet == nullptr) return cannotBeSeen();
    const auto& average = sheet->classAverage();
    if (!average) return whether(!expected.average, "none");
    const std::string figure = tenthsText(average->tenths);
    const std::string grade = letterText(average->letterGrade);
    return whether(expected.average == figure && expected.grade == grade, figure + " " + grade);
}

Outcome Comparison::operator()(const DirtyIs& expected) const {
    const WorkingState* state = driver_.state();
    if (state == nullptr) return cannotBeSeen();
    return whether(state->isDirty == expected.dirty, state->isDirty ? "yes" : "no");
}

Outcome Comparison::operator()(const CurrentPathIs& expected) const {
    const WorkingState* state = driver_.state();
    if (state == nullptr) return cannotBeSeen();
    return compareText(expected.path, pathText(state->currentPath, *state->codePage));
}

}  // namespace quorvel::scenario
