#pragma once

#include <string>
#include <string_view>

#include "reports/Report.h"
#include "reports/ReportPage.h"

namespace quorvel {

/// The lines that a report starts with: title, school, class, date and time (behind `dateLabel`),
/// teacher. A school, class or teacher without a name has no line.
void printHeading(ReportPage& page, std::string_view title, const ReportData& data,
                  std::string_view dateLabel = "");

void printDateLine(ReportPage& page, const ReportData& data, std::string_view label = "");
/// Nothing where the teacher has no name.
void printTeacherLine(ReportPage& page, const ReportData& data);
void printClassAverageLine(ReportPage& page, const GradeSheet& sheet);
void printClassRankLine(ReportPage& page, const GradeSheet& sheet, int student);

}  // namespace quorvel
