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

void printStudentLine(ReportPage& page, const ReportData& data, int student) {
    const GradeSheet& sheet = data.sheet;
    const std::string& name =
        data.useAliases ? sheet.studentAlias(student) : sheet.studentName(student);
    const std::size_t excess =
        data.useAliases ? 0 : std::max(name.size(), longestUnshiftedName) - longestUnshiftedName;
    const int shift = static_cast<int>(excess);
    const StudentFigures& figures = sheet.figures(student);
    page.text(name).at(totalColumn + shift, "Total: ");
    page.at(earnedColumn + shift, std::to_string(figures.pointsEarned));
    page.at(slashColumn + shift, "/");
    page.at(possibleColumn + shift, std::to_string(figures.pointsPossible));
    page.at(percentColumn + shift, tenthsText(figures.percentageTenths)).text(" %");
    page.at(gradeColumn + shift, "Grade: ").line(letterText(figures.letterGrade));
}

}  // namespace

void layOutClassReport(ReportPage& page, const ReportData& data) {
    printHeading(page, "***Class Report***", data, "Class Report As of ");
    printClassAverageLine(page, data.sheet);
    page.emptyLines(2);
    for (int student = 1; student <= data.sheet.studentCount(); ++student) {
        if (!data.sheet.studentName(student).empty()) printStudentLine(page, data, student);
    }
}

}  // namespace quorvel
