#include <ctime>
#include <optional>

#include "core/Errors.h"
#include "qrv/Commands.h"
#include "qrv/Complaints.h"
#include "qrv/Input.h"
#include "qrv/Output.h"
#include "qrv/Problem.h"
#include "reports/Report.h"
#include "reports/TextPrinter.h"

namespace quorvel {

namespace {

std::string twoDigits(int number) {
    return {static_cast<char>('0' + number / 10), static_cast<char>('0' + number % 10)};
}

std::string dateText(const std::tm& now) {
    constexpr int firstYear = 1900;
    return std::to_string(now.tm_mon + 1) + '/' + std::to_string(now.tm_mday) + '/' +
           std::to_string(now.tm_year + firstYear);
}

std::string timeText(const std::tm& now) {
    constexpr int noon = 12;
    const int hour = now.tm_hour % noon == 0 ? noon : now.tm_hour % noon;
    return std::to_string(hour) + ':' + twoDigits(now.tm_min) + ':' + twoDigits(now.tm_sec) +
           (now.tm_hour < noon ? " AM" : " PM");
}

/// Date and time are the system's where they are not given.
ReportData reportData(const Request& request, const CodePage& codePage, const OpenedSheet& opened) {
    const auto text = [&](const std::optional<std::string>& given, const std::string& otherwise) {
        return given ? codePage.fromUtf8(*given) : otherwise;
    };
    const std::time_t clock = std::time(nullptr);
    const std::tm now = *std::localtime(&clock);
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
    const int students = opened.sheet.studentCount();
    if (kind != ReportKind::Assignment && students == 0) {
        throw InputError(name + ": there are no students to print a report on");
    }
    const ReportData data = reportData(request, codePage, opened);
    if (kind == ReportKind::IndividualStudent && (data.student < 1 || data.student > students)) {
        throw InputError(name + ": there is no student " + std::to_string(data.student));
    }
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
    ExitCode worst = ExitCode::Done;
    writeResult(request.output, environment, [&](OutputFile& file) {
        TextWriter writer(file);
        const bool several = request.files.size() > 1;
        bool shown = false;
        worst = forEachSheet(request, [&](const std::string& name) {
            const OpenedSheet opened = openSheet(name, request, environment);
            const std::string text = reportText(name, request, opened, environment.codePage);
            if (shown) writer.write("\f");
            shown = true;
            if (several) writer.write("Sheet: " + oneLine(name) + "\n\n");
            writer.write(text);
            return opened.exitCode();
        });
        return writer.finish(shown);
    });
    return worst;
}

}  // namespace quorvel
