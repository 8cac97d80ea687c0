#include "qrv/Commands.h"
#include "qrv/Csv.h"
#include "qrv/Input.h"
#include "qrv/Problem.h"
#include "storage/SafeWriting.h"

namespace quorvel {

namespace {

std::string csvOf(const GradeSheet& sheet) {
    std::vector<std::string> heading{"Name", "Alias"};
    std::vector<std::string> values{"Value", ""};
    for (int assignment = 1; assignment <= sheet.assignmentCount(); ++assignment) {
        heading.push_back(sheet.assignmentName(assignment));
        values.push_back(std::to_string(sheet.assignmentValue(assignment)));
    }
    std::string csv;
    appendCsvRow(csv, heading);
    appendCsvRow(csv, values);
    for (int student = 1; student <= sheet.studentCount(); ++student) {
        std::vector<std::string> row{sheet.studentName(student), sheet.studentAlias(student)};
        for (int assignment = 1; assignment <= sheet.assignmentCount(); ++assignment) {
            row.push_back(sheet.score(assignment, student).text());
        }
        appendCsvRow(csv, row);
    }
    return csv;
}

}  // namespace

Outcome exportSheet(const Arguments& arguments, Environment& environment) {
    const ReportSettings settings = settingsFor(arguments, environment);
    const GradeSheet sheet =
        readSheet(environment, arguments.operands.at(0), settings.gradingScale);
    std::string csv = environment.codePage.toUtf8(csvOf(sheet));
    const auto output = arguments.value("output");
    if (!output) return {std::move(csv), ""};
    requireWritable(*output);
    const auto writeCsv = [&](OutputFile& file) {
        return file.append(std::as_bytes(std::span(csv)));
    };
    if (!writeSafely(environment.files, pathOf(*output), OldRest::Cut, writeCsv)) {
        throw InputError(*output + ": cannot be written");
    }
    return {};
}

}  // namespace quorvel
