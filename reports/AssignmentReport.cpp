#include "reports/Headings.h"
#include "reports/Layouts.h"

namespace quorvel {

namespace {

constexpr int nameColumn = 7;
constexpr int valueColumn = 37;

}  // namespace

void layOutAssignmentReport(PrintJob& job, const ReportData& data) {
    const GradeSheet& sheet = data.sheet;
    printHeading(job, "***Assignment Report***", data);
    job.emptyLines(2);
    job.text("#").at(nameColumn, "Assignment Name").at(valueColumn, "Value").endLine();
    for (int assignment = 1; assignment <= sheet.assignmentCount(); ++assignment) {
        job.text(std::to_string(assignment)).at(nameColumn, sheet.assignmentName(assignment));
        job.at(valueColumn, std::to_string(sheet.assignmentValue(assignment))).endLine();
    }
}

}  // namespace quorvel
