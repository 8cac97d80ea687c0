#include <ctime>

#include "core/Errors.h"
#include "qrv/Commands.h"
#include "qrv/Input.h"
#include "qrv/Problem.h"
#include "reports/Report.h"
#include "reports/TextPrinter.h"

namespace quorvel {

namespace {

constexpr int firstReport = static_cast<int>(ReportKind::Full);
constexpr int lastReport = static_cast<int>(ReportKind::StudentGrade);

ReportKind parseKind(const std::string& text) {
    const auto number = wholeNumber(text);
    if (!number || *number < firstReport || *number > lastReport) {
        throw UsageError("there is no report '" + text + "': they are numbered 1 to 6");
    }
    return static_cast<ReportKind>(*number);
}

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

long long parseStudent(const Arguments& arguments) {
    const auto number = wholeNumber(arguments.value("student").value_or(""));
    if (!number) throw UsageError("report 3 wants --student and a student's number");
    return *number;
}

/// Date and time are the system's where they are not given.
ReportData reportData(const Arguments& arguments, const CodePage& codePage, const GradeSheet& sheet,
                      const ReportSettings& settings) {
    const auto text = [&](std::string_view option, const std::string& otherwise) {
        const auto given = arguments.value(option);
        return given ? codePage.fromUtf8(*given) : otherwise;
    };
    const std::time_t clock = std::time(nullptr);
    const std::tm now = *std::localtime(&clock);
    return {.sheet = sheet,
            .schoolName = text("school", settings.schoolName),
            .teacherName = text("teacher", settings.teacherName),
            .date = text("date", dateText(now)),
            .time = text("time", timeText(now)),
            .font = {},
            .useAliases = arguments.has("alias")};
}

}  // namespace

Outcome report(const Arguments& arguments, Environment& environment) {
    const ReportKind kind = parseKind(arguments.operands.at(0));
    const bool ofOneStudent = kind == ReportKind::IndividualStudent;
    const long long student = ofOneStudent ? parseStudent(arguments) : 0;
    const ReportSettings settings = settingsFor(arguments, environment);
    const std::string& path = arguments.operands.at(1);
    const GradeSheet sheet = readSheet(environment, path, settings.gradingScale);
    if (kind != ReportKind::Assignment && sheet.studentCount() == 0) {
        throw InputError(path + ": there are no students to print a report on");
    }
    if (ofOneStudent && (student < 1 || student > sheet.studentCount())) {
        throw InputError(path + ": there is no student " + *arguments.value("student"));
    }

    ReportData data = reportData(arguments, environment.codePage, sheet, settings);
    data.student = static_cast<int>(student);
    TextPrinter printer;
    try {
        printReport(kind, data, printer);
    } catch (const DivisionByZeroError& error) {
        throw ReportStopped(path + ": " + error.what());
    }
    return {environment.codePage.toUtf8(printer.text()), ""};
}

}  // namespace quorvel
