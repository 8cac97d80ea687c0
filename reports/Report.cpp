#include "reports/Report.h"

#include <array>

#include "core/Errors.h"
#include "reports/Layouts.h"

namespace quorvel {

namespace {

struct Report {
    PrintJobSettings job;
    void (*layOut)(PrintJob&, const ReportData&);
};

/// In the order of ReportKind. The pages of two of them are handed to different students.
constexpr std::array<Report, 6> reports{{
    {{.title = "Student Report", .oneSided = true}, layOutFullReport},
    {{.title = "Class Report"}, layOutClassReport},
    {{.title = "Student Report"}, layOutIndividualStudentReport},
    {{.title = "Assignment Report"}, layOutAssignmentReport},
    {{.title = "Teacher Report", .orientation = Orientation::Landscape}, layOutTeacherReport},
    {{.title = "Student Grade Report", .oneSided = true}, layOutStudentGradeReport},
}};

const Report& reportOf(ReportKind kind) {
    const auto number = static_cast<std::size_t>(kind);
    if (number < 1 || number > reports.size()) throw InternalError("There is no such report.");
    return reports[number - 1];
}

bool hasNamedStudent(const GradeSheet& sheet) {
    for (int student = 1; student <= sheet.studentCount(); ++student)
        if (!sheet.studentName(student).empty()) return true;
    return false;
}

}  // namespace

std::string_view jobTitle(ReportKind kind) {
    return reportOf(kind).job.title;
}

void printReport(ReportKind kind, const ReportData& data, Printer& printer) {
    // Students without a name have no page in the full report: it may have none at all.
    if (kind == ReportKind::Full && !hasNamedStudent(data.sheet)) return;
    const Report& report = reportOf(kind);
    PrintJob job(printer, report.job, data.font);
    report.layOut(job, data);
    job.finish();
}

}  // namespace quorvel
