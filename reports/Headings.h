#pragma once

#include <string>
#include <string_view>

#include "reports/PrintJob.h"
#include "reports/Report.h"

namespace quorvel {

/// The lines that a report starts with: title, school, class, date and time (behind `dateLabel`),
/// teacher. A school, class or teacher without a name has no line.
void printHeading(PrintJob& job, std::string_view title, const ReportData& data,
                  std::string_view dateLabel = "");

void printDateLine(PrintJob& job, const ReportData& data, std::string_view label = "");
/// Nothing where the teacher has no name.
void printTeacherLine(PrintJob& job, const ReportData& data);
void printClassAverageLine(PrintJob& job, const GradeSheet& sheet);
void printClassRankLine(PrintJob& job, const GradeSheet& sheet, int student);

}  // namespace quorvel
