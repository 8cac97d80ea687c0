#include "page/PageContent.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "core/Grades.h"

namespace quorvel {

namespace {

/// Where percentages of a single score stop. No sheet that makes sense comes near.
constexpr std::int64_t percentageLimit = 1'000'000'000'000'000;

std::int64_t shownPercentage(const Decimal& tenths) {
    return std::clamp(tenths.toInteger(), -percentageLimit, percentageLimit);
}

std::string textOr(std::string text, const char* otherwise, int number) {
    if (text.find_first_not_of(' ') != std::string::npos) return text;
    return otherwise + std::to_string(number);
}

CellEntry cellEntry(const Score& score, std::int16_t value, const CodePage& codePage) {
    if (score.isEmpty()) return {};
    CellEntry cell{
        .kind = CellKind::Scored, .text = codePage.toUtf8(score.text()), .percentage = {}};
    if (score.isExcused()) {
        cell.kind = CellKind::Excused;
    } else if (const auto percentage = scorePercentageTenths(score, value)) {
        cell.percentage = shownPercentage(*percentage);
    }
    return cell;
}

/// How many assignments have a value.
int valuedCount(const GradeSheet& sheet) {
    int count = 0;
    for (int assignment = 1; assignment <= sheet.assignmentCount(); ++assignment) {
        if (sheet.assignmentValue(assignment) != 0) ++count;
    }
    return count;
}

/// A student whose cells are all empty.
StudentEntry studentEntry(const GradeSheet& sheet, int student, int valued,
                          const PageChoice& choice) {
    const std::string& name =
        choice.useAliases ? sheet.studentAlias(student) : sheet.studentName(student);
    return {.number = student,
            .name = textOr(choice.codePage.toUtf8(name), "Student ", student),
            .figures = sheet.figures(student),
            .cells = {},
            .missingCount = valued};
}

/// Puts the cell behind those that the student has, with empty ones between.
void addCell(StudentEntry& student, int assignment, bool isValued, CellEntry cell) {
    student.cells.resize(static_cast<std::size_t>(assignment) - 1);
    student.cells.push_back(std::move(cell));
    if (isValued) --student.missingCount;
}

std::string assignmentName(const GradeSheet& sheet, int assignment, const CodePage& codePage) {
    return textOr(codePage.toUtf8(sheet.assignmentName(assignment)), "Assignment ", assignment);
}

/// Behind these students an assignment has only empty cells.
int studentsWithCells(const GradeSheet& sheet, int assignment) {
    const ScoreColumn& column = sheet.scores(assignment);
    return std::min(sheet.studentCount(), column.storedCount() + column.zeroCount());
}

/// Gives the students their cells of the assignment and counts them.
AssignmentEntry assignmentEntry(const GradeSheet& sheet, int assignment, const CodePage& codePage,
                                std::vector<StudentEntry>& students) {
    AssignmentEntry entry;
    entry.number = assignment;
    entry.name = assignmentName(sheet, assignment, codePage);
    entry.value = sheet.assignmentValue(assignment);
    std::vector<std::int64_t> percentages;
    const int withCells = studentsWithCells(sheet, assignment);
    for (int student = 1; student <= withCells; ++student) {
        CellEntry cell = cellEntry(sheet.scores(assignment).score(student),
                                   sheet.assignmentValue(assignment), codePage);
        if (cell.kind == CellKind::Empty) continue;
        if (cell.percentage) percentages.push_back(*cell.percentage);
        (cell.kind == CellKind::Excused ? entry.excusedCount : entry.scoredCount) += 1;
        addCell(students[static_cast<std::size_t>(student) - 1], assignment, entry.value != 0,
                std::move(cell));
    }
    entry.emptyCount = sheet.studentCount() - entry.scoredCount - entry.excusedCount;
    entry.spread = spreadOf(std::move(percentages));
    if (const auto average = assignmentAverage(sheet, assignment)) {
        const auto percentage = average->percentTenths();
        if (percentage) entry.averagePercentage = shownPercentage(*percentage);
    }
    return entry;
}

std::vector<Gap> gapsByStudent(const ClassContent& content) {
    std::vector<int> valued;
    for (const AssignmentEntry& assignment : content.assignments) {
        if (assignment.value != 0) valued.push_back(assignment.number);
    }
    std::vector<Gap> gaps;
    for (const StudentEntry& student : content.students) {
        if (student.missingCount == 0) continue;
        Gap gap{.number = student.number, .count = student.missingCount, .others = {}};
        for (const int assignment : valued) {
            if (gap.others.size() == Gap::mostNamed) break;
            const bool isEmpty = student.cell(assignment).kind == CellKind::Empty;
            if (isEmpty) gap.others.push_back(assignment);
        }
        gaps.push_back(std::move(gap));
    }
    std::ranges::stable_sort(gaps, std::greater{}, &Gap::count);
    return gaps;
}

std::vector<Gap> gapsByAssignment(const ClassContent& content) {
    std::vector<Gap> gaps;
    for (const AssignmentEntry& assignment : content.assignments) {
        if (assignment.emptyCount == 0 || assignment.value == 0) continue;
        Gap gap{.number = assignment.number, .count = assignment.emptyCount, .others = {}};
        for (const StudentEntry& student : content.students) {
            if (gap.others.size() == Gap::mostNamed) break;
            const bool isEmpty = student.cell(assignment.number).kind == CellKind::Empty;
            if (isEmpty) gap.others.push_back(student.number);
        }
        gaps.push_back(std::move(gap));
    }
    return gaps;
}

/// What pages of a class and of a student have in common.
template <typename Content>
Content contentWithHeading(const GradeSheet& sheet, const PageChoice& choice) {
    Content content;
    content.title = choice.codePage.toUtf8(sheet.sheetTitle);
    const bool isBlank = content.title.find_first_not_of(' ') == std::string::npos;
    if (isBlank) content.title = choice.titleOtherwise;
    content.heading = choice.heading;
    content.limits = LetterThresholds(choice.scale).tenths();
    content.average = sheet.classAverage();
    return content;
}

}  // namespace

const CellEntry& StudentEntry::cell(int assignment) const {
    static const CellEntry empty;
    const std::size_t index = static_cast<std::size_t>(assignment) - 1;
    return index < cells.size() ? cells[index] : empty;
}

ClassContent classContent(const GradeSheet& sheet, const PageChoice& choice) {
    auto content = contentWithHeading<ClassContent>(sheet, choice);
    const int valued = valuedCount(sheet);
    for (int student = 1; student <= sheet.studentCount(); ++student) {
        content.students.push_back(studentEntry(sheet, student, valued, choice));
        const LetterGrade letter = sheet.figures(student).letterGrade;
        ++content.letterCounts[static_cast<std::size_t>(letter) -
                               static_cast<std::size_t>(LetterGrade::A)];
    }
    for (int assignment = 1; assignment <= sheet.assignmentCount(); ++assignment) {
        content.assignments.push_back(
            assignmentEntry(sheet, assignment, choice.codePage, content.students));
        const AssignmentEntry& entry = content.assignments.back();
        content.emptyCount += entry.emptyCount;
        if (entry.value != 0) content.missingCount += entry.emptyCount;
        content.excusedCount += entry.excusedCount;
        if (entry.scoredCount + entry.excusedCount > 0) content.lastAssignment = assignment;
    }
    content.gapsByStudent = gapsByStudent(content);
    content.gapsByAssignment = gapsByAssignment(content);
    return content;
}

StudentContent studentContent(const GradeSheet& sheet, int student, const PageChoice& choice) {
    auto content = contentWithHeading<StudentContent>(sheet, choice);
    content.student = studentEntry(sheet, student, valuedCount(sheet), choice);
    for (int assignment = 1; assignment <= sheet.assignmentCount(); ++assignment) {
        const std::int16_t value = sheet.assignmentValue(assignment);
        content.assignments.push_back({.number = assignment,
                                       .name = assignmentName(sheet, assignment, choice.codePage),
                                       .value = value});
        CellEntry cell = cellEntry(sheet.score(assignment, student), value, choice.codePage);
        if (cell.kind == CellKind::Empty) continue;
        addCell(content.student, assignment, value != 0, std::move(cell));
    }
    return content;
}

}  // namespace quorvel
