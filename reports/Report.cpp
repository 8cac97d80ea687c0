#include "reports/Report.h"

#include <array>

#include "core/Errors.h"
#include "reports/Layouts.h"

namespace quorvel {

namespace {

struct Report {
    std::string_view jobTitle;
    Orientation orientation;
    void (*layOut)(ReportPage&, const ReportData&);
};

/// In the order of ReportKind.
constexpr std::array<Report, 6> reports{{
    {"Student Report", Orientation::Portrait, layOutFullReport},
    {"Class Report", Orientation::Portrait, layOutClassReport},
    {"Student Report", Orientation::Portrait, layOutIndividualStudentReport},
    {"Assignment Report", Orientation::Portrait, layOutAssignmentReport},
    {"Teacher Report", Orientation::Landscape, layOutTeacherReport},
    {"Student Grade Report", Orientation::Portrait, layOutStudentGradeReport},
}};

const Report& reportOf(ReportKind kind) {
    const auto number = static_cast<std::size_t>(kind);
    if (number < 1 || number > reports.size()) throw InternalError("There is no such report.");
    return reports[number - 1];
}

}  // namespace

std::string_view jobTitle(ReportKind kind) {
    return reportOf(kind).jobTitle;
}

void printReport(ReportKind kind, const ReportData& data, Printer& printer) {
    const Report& report = reportOf(kind);
    ReportPage page(printer, report.jobTitle, report.orientation, data.font);
    report.layOut(page, data);
    page.finish();
}

}  // namespace quorvel
