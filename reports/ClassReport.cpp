#include <algorithm>

#include "core/Numbers.h"
#include "reports/Headings.h"
#include "reports/Layouts.h"

namespace quorvel {

namespace {

constexpr int totalColumn = 25;
constexpr int earnedColumn = 33;
constexpr int slashColumn = 40;
constexpr int possibleColumn = 42;
constexpr int percentColumn = 49;
constexpr int gradeColumn = 58;

/// A full name longer than this moves all columns of its line right.
constexpr std::size_t longestUnshiftedName = 30;

void printStudentLine(PrintJob& job, const ReportData& data, int student) {
    const GradeSheet& sheet = data.sheet;
    const std::string& name =
        data.useAliases ? sheet.studentAlias(student) : sheet.studentName(student);
    const std::size_t excess =
        data.useAliases ? 0 : std::max(name.size(), longestUnshiftedName) - longestUnshiftedName;
    const int shift = static_cast<int>(excess);
    const StudentFigures& figures = sheet.figures(student);
    job.text(name).at(totalColumn + shift, "Total: ");
    job.at(earnedColumn + shift, std::to_string(figures.pointsEarned));
    job.at(slashColumn + shift, "/");
    job.at(possibleColumn + shift, std::to_string(figures.pointsPossible));
    job.at(percentColumn + shift, tenthsText(figures.percentageTenths)).text(" %");
    job.at(gradeColumn + shift, "Grade: ").line(letterText(figures.letterGrade));
}

}  // namespace

void layOutClassReport(PrintJob& job, const ReportData& data) {
    printHeading(job, "***Class Report***", data, "Class Report As of ");
    printClassAverageLine(job, data.sheet);
    job.emptyLines(2);
    for (int student = 1; student <= data.sheet.studentCount(); ++student) {
        if (!data.sheet.studentName(student).empty()) printStudentLine(job, data, student);
    }
}

}  // namespace quorvel
