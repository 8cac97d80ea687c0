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

void printAssignmentPercent(PrintJob& job, const Score& score, std::int16_t value) {
    if (score.isExcused()) {
        job.at(percentColumn, "Excuse");
    } else if (const auto percent = scorePercentageTenths(score, value)) {
        job.at(percentColumn, percent->tenthsText()).text(" %");
    }
}

void printAssignments(PrintJob& job, const GradeSheet& sheet, int student, PercentColumn percents) {
    job.text("Assignment Name").at(scoreColumn, "Grade").at(headingSlashColumn, " / ");
    job.at(valueColumn, "Value");
    if (percents == PercentColumn::Shown) job.at(percentColumn, "Percent");
    job.endLine();
    for (int assignment = 1; assignment <= sheet.assignmentCount(); ++assignment) {
        const std::string& name = sheet.assignmentName(assignment);
        if (name.empty()) continue;
        const Score score = sheet.score(assignment, student);
        const std::int16_t value = sheet.assignmentValue(assignment);
        job.text(name).at(scoreColumn, score.text()).at(slashColumn, "/");
        job.at(valueColumn, std::to_string(value));
        if (percents == PercentColumn::Shown) printAssignmentPercent(job, score, value);
        job.endLine();
    }
}

void printTotal(PrintJob& job, const StudentFigures& figures) {
    if (figures.pointsPossible == 0) throw DivisionByZeroError();
    job.text("Total: ").at(scoreColumn, std::to_string(figures.pointsEarned));
    job.at(slashColumn, "/").at(valueColumn, std::to_string(figures.pointsPossible));
    const auto percentage = percentageTenths(figures.pointsEarned, figures.pointsPossible);
    job.at(percentColumn, tenthsText(percentage)).text(" %");
    job.at(gradeColumn, "Grade: ").line(letterText(figures.letterGrade));
}

void printStudent(PrintJob& job, const ReportData& data, int student, PercentColumn percents) {
    const GradeSheet& sheet = data.sheet;
    printHeading(job, title, data);
    printClassAverageLine(job, sheet);
    job.emptyLines(2);
    job.text("Student: ").line(sheet.studentName(student));
    printClassRankLine(job, sheet, student);
    job.emptyLines(2);
    printAssignments(job, sheet, student, percents);
    printTotal(job, sheet.figures(student));
}

}  // namespace

void layOutFullReport(PrintJob& job, const ReportData& data) {
    for (int student = 1; student <= data.sheet.studentCount(); ++student) {
        if (data.sheet.studentName(student).empty()) continue;
        job.newPage();
        printStudent(job, data, student, PercentColumn::Shown);
    }
}

void layOutIndividualStudentReport(PrintJob& job, const ReportData& data) {
    printStudent(job, data, data.student, PercentColumn::Hidden);
}

}  // namespace quorvel
