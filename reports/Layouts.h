#pragma once

#include "reports/PrintJob.h"
#include "reports/Report.h"

namespace quorvel {

// The lines of each report, onto the pages of a job that is under way.

void layOutFullReport(PrintJob& job, const ReportData& data);
void layOutIndividualStudentReport(PrintJob& job, const ReportData& data);
void layOutClassReport(PrintJob& job, const ReportData& data);
void layOutAssignmentReport(PrintJob& job, const ReportData& data);
void layOutTeacherReport(PrintJob& job, const ReportData& data);
void layOutStudentGradeReport(PrintJob& job, const ReportData& data);

}  // namespace quorvel
