#include "core/Numbers.h"
#include "reports/Headings.h"
#include "reports/Layouts.h"

namespace quorvel {

namespace {

/// Students of these multiples start a page, so the first page holds one slip less than the others.
constexpr int slipsOnPage = 6;

void printSlip(PrintJob& job, const ReportData& data, int student) {
    const GradeSheet& sheet = data.sheet;
    const StudentFigures& figures = sheet.figures(student);
    job.line("***Student Grade Report***");
    job.text("School: ").text(data.schoolName).text("     Class: ").line(sheet.sheetTitle);
    printDateLine(job, data);
    printTeacherLine(job, data);
    printClassAverageLine(job, sheet);
    printClassRankLine(job, sheet, student);
    job.emptyLines(1);
    job.text(sheet.studentName(student)).text(", your grade is a(n) '");
    job.text(letterText(figures.letterGrade)).text("' ");
    job.text(tenthsText(figures.percentageTenths)).line("%.");
    job.text("You have earned ").text(std::to_string(figures.pointsEarned));
    job.text(" points out of ").text(std::to_string(figures.pointsPossible)).line(".");
}

}  // namespace

void layOutStudentGradeReport(PrintJob& job, const ReportData& data) {
    for (int student = 1; student <= data.sheet.studentCount(); ++student) {
        if (student % slipsOnPage == 0) {
            job.newPage();
        } else {
            job.emptyLines(2);
        }
        printSlip(job, data, student);
    }
}

}  // namespace quorvel
