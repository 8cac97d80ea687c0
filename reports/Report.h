#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/GradeSheet.h"
#include "core/PrintFont.h"
#include "core/ports/Printer.h"

namespace quorvel {

/// The reports by the numbers that the user chooses them with.
enum class ReportKind : std::int16_t {
    Full = 1,
    Class = 2,
    IndividualStudent = 3,
    Assignment = 4,
    Teacher = 5,
    StudentGrade = 6,
};

/// What a report is printed from. The sheet's figures are taken as last computed.
struct ReportData {
    const GradeSheet& sheet;
    std::string schoolName;
    std::string teacherName;
    std::string date;
    std::string time;
    PrintFont font;
    bool useAliases = false;  // class and teacher report
    int student = 0;          // individual student report: 1 to the count
};

/// The name of the report's print job.
std::string_view jobTitle(ReportKind kind);

/// Prints the report as one job; without a job where it has nothing to print. Throws
/// DivisionByZeroError for a student without points possible (Full, IndividualStudent) and
/// PrinterError; the job is then cancelled.
void printReport(ReportKind kind, const ReportData& data, Printer& printer);

}  // namespace quorvel
