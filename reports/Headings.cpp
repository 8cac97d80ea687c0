#include "reports/Headings.h"

#include "core/Numbers.h"

namespace quorvel {

void printDateLine(ReportPage& page, const ReportData& data, std::string_view label) {
    page.text(label).text(data.date).text(" at ").text(data.time).endLine();
}

void printTeacherLine(ReportPage& page, const ReportData& data) {
    if (!data.teacherName.empty()) page.text("Teacher: ").text(data.teacherName).endLine();
}

void printHeading(ReportPage& page, std::string_view title, const ReportData& data,
                  std::string_view dateLabel) {
    page.line(title);
    if (!data.schoolName.empty()) page.text("School: ").text(data.schoolName).endLine();
    if (!data.sheet.sheetTitle.empty()) page.text("Class: ").text(data.sheet.sheetTitle).endLine();
    printDateLine(page, data, dateLabel);
    printTeacherLine(page, data);
}

void printClassAverageLine(ReportPage& page, const GradeSheet& sheet) {
    page.text("Class Average: ");
    if (const auto& average = sheet.classAverage()) page.text(tenthsText(average->tenths));
    page.line("%");
}

void printClassRankLine(ReportPage& page, const GradeSheet& sheet, int student) {
    page.text("Class Rank: ").text(std::to_string(sheet.figures(student).rank));
    page.text(" (out of ").text(std::to_string(sheet.studentCount())).line(" students)");
}

}  // namespace quorvel
