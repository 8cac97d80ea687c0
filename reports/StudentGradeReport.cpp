#include "core/Numbers.h"
#include "reports/Headings.h"
#include "reports/Layouts.h"

namespace quorvel {

namespace {

/// Students of these multiples start a page, so the first page holds one slip less than the others.
constexpr int slipsOnPage = 6;

void printSlip(ReportPage& page, const ReportData& data, int student) {
    const GradeSheet& sheet = data.sheet;
    const StudentFigures& figures = sheet.figures(student);
    page.line("***Student Grade Report***");
    page.text("School: ").text(data.schoolName).text("     Class: ").line(sheet.sheetTitle);
    printDateLine(page, data);
    printTeacherLine(page, data);
    printClassAverageLine(page, sheet);
    printClassRankLine(page, sheet, student);
    page.emptyLines(1);
    page.text(sheet.studentName(student)).text(", your grade is a(n) '");
    page.text(letterText(figures.letterGrade)).text("' ");
    page.text(tenthsText(figures.percentageTenths)).line("%.");
    page.text("You have earned ").text(std::to_string(figures.pointsEarned));
    page.text(" points out of ").text(std::to_string(figures.pointsPossible)).line(".");
}

}  // namespace

void layOutStudentGradeReport(ReportPage& page, const ReportData& data) {
    for (int student = 1; student <= data.sheet.studentCount(); ++student) {
        if (student % slipsOnPage == 0) {
            page.newPage();
        } else {
            page.emptyLines(2);
        }
        printSlip(page, data, student);
    }
}

}  // namespace quorvel
