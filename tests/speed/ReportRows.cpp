#include <string>

#include "reports/Report.h"
#include "reports/TextPrinter.h"
#include "tests/speed/Sizes.h"

namespace quorvel {

namespace {

constexpr ReportKind kinds[] = {
    ReportKind::Full,       ReportKind::Class,   ReportKind::IndividualStudent,
    ReportKind::Assignment, ReportKind::Teacher, ReportKind::StudentGrade};

TextPrinter allReports(const GradeSheet& sheet) {
    TextPrinter printer;
    for (const ReportKind kind : kinds) {
        const ReportData data{.sheet = sheet,
                              .schoolName = "School",
                              .teacherName = "Teacher",
                              .date = "3/4/2026",
                              .time = "2:15:07 PM",
                              .font = {"Courier New", 10},
                              .student = 1};
        printReport(kind, data, printer);
    }
    return printer;
}

GradeSheet classWithFigures(int students) {
    GradeSheet sheet = sampleClass(students);
    sheet.recomputeFigures(GradingScale());
    return sheet;
}

void printReports(benchmark::State& state) {
    const GradeSheet sheet = classWithFigures(studentsOf(state));
    for (auto _ : state) benchmark::DoNotOptimize(allReports(sheet).text().data());
}

/// The same characters, one after the other.
void writeCharacters(benchmark::State& state) {
    const std::string text = allReports(classWithFigures(studentsOf(state))).text();
    for (auto _ : state) {
        std::string written;
        for (const char character : text) written.push_back(character);
        benchmark::DoNotOptimize(written.data());
    }
}

BENCHMARK(printReports)->Apply(eachSize);
BENCHMARK(writeCharacters)->Apply(eachSize);

}  // namespace

}  // namespace quorvel
