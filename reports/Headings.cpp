#include "reports/Headings.h"

#include "core/Numbers.h"

namespace quorvel {

void printDateLine(PrintJob& job, const ReportData& data, std::string_view label) {
    job.text(label).text(data.date).text(" at ").text(data.time).endLine();
}

void printTeacherLine(PrintJob& job, const ReportData& data) {
    if (!data.teacherName.empty()) job.text("Teacher: ").text(data.teacherName).endLine();
}

void printHeading(PrintJob& job, std::string_view title, const ReportData& data,
                  std::string_view dateLabel) {
    job.line(title);
    if (!data.schoolName.empty()) job.text("School: ").text(data.schoolName).endLine();
    if (!data.sheet.sheetTitle.empty()) job.text("Class: ").text(data.sheet.sheetTitle).endLine();
    printDateLine(job, data, dateLabel);
    printTeacherLine(job, data);
}

void printClassAverageLine(PrintJob& job, const GradeSheet& sheet) {
    job.text("Class Average: ");
    if (const auto& average = sheet.classAverage()) job.text(tenthsText(average->tenths));
    job.line("%");
}

void printClassRankLine(PrintJob& job, const GradeSheet& sheet, int student) {
    job.text("Class Rank: ").text(std::to_string(sheet.figures(student).rank));
    job.text(" (out of ").text(std::to_string(sheet.studentCount())).line(" students)");
}

}  // namespace quorvel
