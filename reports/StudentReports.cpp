#include "core/Errors.h"
#include "core/Grades.h"
#include "core/Numbers.h"
#include "reports/Headings.h"
#include "reports/Layouts.h"

namespace quorvel {

namespace {

constexpr std::string_view title = "***Student Report***";

constexpr int scoreColumn = 30;
/// The heading's slash stands one column before that of the lines under it; so it has always been.
constexpr int headingSlashColumn = 36;
constexpr int slashColumn = 37;
constexpr int valueColumn = 39;
constexpr int percentColumn = 46;
constexpr int gradeColumn = 55;

enum class PercentColumn { Shown, Hidden };

void printAssignmentPercent(ReportPage& page, const Score& score, std::int16_t value) {
    if (score.isExcused()) {
        page.at(percentColumn, "Excuse");
    } else if (const auto percent = scorePercentageTenths(score, value)) {
        page.at(percentColumn, percent->tenthsText()).text(" %");
    }
}

void printAssignments(ReportPage& page, const GradeSheet& sheet, int student,
                      PercentColumn percents) {
    page.text("Assignment Name").at(scoreColumn, "Grade").at(headingSlashColumn, " / ");
    page.at(valueColumn, "Value");
    if (percents == PercentColumn::Shown) page.at(percentColumn, "Percent");
    page.endLine();
    for (int assignment = 1; assignment <= sheet.assignmentCount(); ++assignment) {
        const std::string& name = sheet.assignmentName(assignment);
        if (name.empty()) continue;
        const Score score = sheet.score(assignment, student);
        const std::int16_t value = sheet.assignmentValue(assignment);
        page.text(name).at(scoreColumn, score.text()).at(slashColumn, "/");
        page.at(valueColumn, std::to_string(value));
        if (percents == PercentColumn::Shown) printAssignmentPercent(page, score, value);
        page.endLine();
    }
}

void printTotal(ReportPage& page, const StudentFigures& figures) {
    if (figures.pointsPossible == 0) throw DivisionByZeroError();
    page.text("Total: ").at(scoreColumn, std::to_string(figures.pointsEarned));
    page.at(slashColumn, "/").at(valueColumn, std::to_string(figures.pointsPossible));
    const auto percentage = percentageTenths(figures.pointsEarned, figures.pointsPossible);
    page.at(percentColumn, tenthsText(percentage)).text(" %");
    page.at(gradeColumn, "Grade: ").line(letterText(figures.letterGrade));
}

void printStudent(ReportPage& page, const ReportData& data, int student, PercentColumn percents) {
    const GradeSheet& sheet = data.sheet;
    printHeading(page, title, data);
    printClassAverageLine(page, sheet);
    page.emptyLines(2);
    page.text("Student: ").line(sheet.studentName(student));
    printClassRankLine(page, sheet, student);
    page.emptyLines(2);
    printAssignments(page, sheet, student, percents);
    printTotal(page, sheet.figures(student));
}

}  // namespace

void layOutFullReport(ReportPage& page, const ReportData& data) {
    for (int student = 1; student <= data.sheet.studentCount(); ++student) {
        if (data.sheet.studentName(student).empty()) continue;
        page.newPage();
        printStudent(page, data, student, PercentColumn::Shown);
    }
}

void layOutIndividualStudentReport(ReportPage& page, const ReportData& data) {
    printStudent(page, data, data.student, PercentColumn::Hidden);
}

}  // namespace quorvel
