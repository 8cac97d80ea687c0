#include "reports/Headings.h"
#include "reports/Layouts.h"

namespace quorvel {

namespace {

constexpr int nameColumn = 7;
constexpr int valueColumn = 37;

}  // namespace

void layOutAssignmentReport(ReportPage& page, const ReportData& data) {
    const GradeSheet& sheet = data.sheet;
    printHeading(page, "***Assignment Report***", data);
    page.emptyLines(2);
    page.text("#").at(nameColumn, "Assignment Name").at(valueColumn, "Value").endLine();
    for (int assignment = 1; assignment <= sheet.assignmentCount(); ++assignment) {
        page.text(std::to_string(assignment)).at(nameColumn, sheet.assignmentName(assignment));
        page.at(valueColumn, std::to_string(sheet.assignmentValue(assignment))).endLine();
    }
}

}  // namespace quorvel
