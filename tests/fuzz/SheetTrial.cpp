#include <array>
#include <cstdint>

#include "core/Errors.h"
#include "reports/Report.h"
#include "reports/TextPrinter.h"
#include "storage/SheetFile.h"
#include "tests/fakes/FakePrinter.h"
#include "tests/fakes/MemoryFiles.h"
#include "tests/fuzz/Trials.h"

namespace quorvel::fuzz {

namespace {

constexpr const char* sheetFile = "/sheet.qrv";

/// Counts may claim a thousand million cells, which a written sheet and a printed one really have.
/// Larger ones than these are read and computed only.
constexpr std::int64_t mostCells = 2'000;
constexpr std::int64_t mostStudentsAndAssignments = 400;

constexpr std::array reportKinds{
    ReportKind::Full,       ReportKind::Class,   ReportKind::IndividualStudent,
    ReportKind::Assignment, ReportKind::Teacher, ReportKind::StudentGrade};

bool isOfUsualSize(const GradeSheet& sheet) {
    const std::int64_t students = sheet.studentCount();
    const std::int64_t assignments = sheet.assignmentCount();
    return students * assignments <= mostCells &&
           students + assignments <= mostStudentsAndAssignments;
}

void printAll(const GradeSheet& sheet, Printer& printer) {
    ReportData data{.sheet = sheet,
                    .schoolName = "School",
                    .teacherName = "Teacher",
                    .date = "DATE",
                    .time = "TIME",
                    .font = {.name = "Courier New", .size = 10},
                    .student = sheet.studentCount()};
    for (const ReportKind kind : reportKinds) {
        if (kind != ReportKind::Assignment && sheet.studentCount() == 0) continue;
        data.useAliases = !data.useAliases;
        try {
            printReport(kind, data, printer);
        } catch (const DivisionByZeroError&) {
            // What the user is told where a student has no points possible.
        }
    }
}

Bytes written(const GradeSheet& sheet) {
    MemoryFiles files;
    if (!writeSheet(files, sheetFile, sheet)) throw Broken("a sheet cannot be written");
    return std::move(files.files.at(sheetFile));
}

void requireSameOnceWritten(const Bytes& once) {
    MemoryFiles files;
    files.files[sheetFile] = once;
    const SheetReading again = readSheet(files, sheetFile);
    if (again.problem != FileProblem::None) throw Broken("a sheet that was written is not read");
    if (written(again.sheet) != once)
        throw Broken("a sheet that was written is read as another one");
}

bool isWhole(std::span<const std::byte> bytes) {
    RecordReader reader(bytes);
    return !checkSheet(reader).firstDamage;
}

}  // namespace

void trySheet(std::span<const std::byte> bytes) {
    GradeSheet sheet = decodeSheet(bytes);
    sheet.recomputeFigures(GradingScale());
    if (!isOfUsualSize(sheet)) return;
    // Either is enough work for one sheet; another length goes to the other.
    if (bytes.size() % 2 == 0) {
        TextPrinter text;
        printAll(sheet, text);
    } else {
        FakePrinter paper;
        printAll(sheet, paper);
    }
    const Bytes once = written(sheet);
    requireSameOnceWritten(once);
    if (!isWhole(once)) throw Broken("a damaged sheet was written");
    // Its last record may be shortened.
    if (isWhole(bytes) && once.size() >= bytes.size() + recordSize)
        throw Broken("a whole sheet lacked something");
}

}  // namespace quorvel::fuzz
