#include <optional>

#include "core/Errors.h"
#include "qrv/Commands.h"
#include "qrv/Complaints.h"
#include "qrv/Dates.h"
#include "qrv/Input.h"
#include "qrv/Output.h"
#include "qrv/Problem.h"
#include "reports/Report.h"
#include "reports/TextPrinter.h"

namespace quorvel {

namespace {

/// Date and time are the system's where they are not given.
ReportData reportData(const Request& request, const CodePage& codePage, const OpenedSheet& opened) {
    const auto text = [&](const std::optional<std::string>& given, const std::string& otherwise) {
        return given ? codePage.fromUtf8(*given) : otherwise;
    };
    const std::tm now = localTime();
    return {.sheet = opened.sheet,
            .schoolName = text(request.school, opened.settings.settings.schoolName),
            .teacherName = text(request.teacher, opened.settings.settings.teacherName),
            .date = text(request.date, dateText(now)),
            .time = text(request.time, timeText(now)),
            .font = {},
            .useAliases = request.useAliases,
            .student = request.student.value_or(0)};
}

/// Throws InputError where there is nothing to print and ReportStopped where the report stops.
std::string reportText(const std::string& name, const Request& request, const OpenedSheet& opened,
                       const CodePage& codePage) {
    const auto kind = static_cast<ReportKind>(request.reportKind);
    if (kind != ReportKind::Assignment && opened.sheet.studentCount() == 0) {
        throw InputError(name + ": there are no students to print a report on");
    }
    const ReportData data = reportData(request, codePage, opened);
    if (kind == ReportKind::IndividualStudent) requireStudent(name, opened.sheet, data.student);
    TextPrinter printer;
    try {
        printReport(kind, data, printer);
    } catch (const DivisionByZeroError& error) {
        throw ReportStopped(name + ": " + error.what());
    }
    return codePage.toUtf8(printer.text());
}

}  // namespace

ExitCode report(const Request& request, Environment& environment) {
    const bool ofOneStudent = request.reportKind == static_cast<int>(ReportKind::IndividualStudent);
    if (ofOneStudent && !request.student) {
        throw UsageError("report 3 wants --student and a student's number (see qrv report --help)");
    }
    return writeForEachSheet(
        request, environment, "\f", [&](const std::string& name, SheetParts& parts) {
            const OpenedSheet opened = openSheet(name, request, environment);
            const std::string text = reportText(name, request, opened, environment.codePage);
            TextWriter& writer = parts.next();
            if (request.files.size() > 1) writer.write("Sheet: " + oneLine(name) + "\n\n");
            writer.write(text);
            return opened.exitCode();
        });
}

}  // namespace quorvel
