#pragma once

#include "reports/Report.h"
#include "reports/ReportPage.h"

namespace quorvel {

// The lines of each report, onto the pages of a job that is under way.

void layOutFullReport(ReportPage& page, const ReportData& data);
void layOutIndividualStudentReport(ReportPage& page, const ReportData& data);
void layOutClassReport(ReportPage& page, const ReportData& data);
void layOutAssignmentReport(ReportPage& page, const ReportData& data);
void layOutTeacherReport(ReportPage& page, const ReportData& data);
void layOutStudentGradeReport(ReportPage& page, const ReportData& data);

}  // namespace quorvel
