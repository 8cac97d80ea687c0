#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "reports/Report.h"
#include "reports/TextPrinter.h"

#include <gtest/gtest.h>

namespace quorvel {

/// A class to which a test adds, and the lines of its reports.
class ReportsTest : public testing::Test {
  protected:
    GradeSheet sheet;
    ReportData data{.sheet = sheet,
                    .schoolName = "",
                    .teacherName = "",
                    .date = "DATE",
                    .time = "TIME",
                    .font = {"Arial", 12}};
    TextPrinter printer;

    void addStudents(int count) {
        for (int student = 1; student <= count; ++student) {
            const std::string number = std::to_string(student);
            sheet.addStudent("Student " + number, "S" + number);
        }
    }

    std::string print(ReportKind kind) {
        sheet.recomputeFigures(GradingScale());
        printer = TextPrinter();
        printReport(kind, data, printer);
        return printer.text();
    }

    std::vector<std::string> lines(ReportKind kind) {
        std::istringstream text(print(kind));
        std::vector<std::string> result;
        for (std::string line; std::getline(text, line);) result.push_back(line);
        return result;
    }

    /// The first line that starts with `start`; empty where there is none.
    std::string line(ReportKind kind, const std::string& start) {
        for (const std::string& candidate : lines(kind)) {
            if (candidate.starts_with(start)) return candidate;
        }
        return "";
    }

    bool has(ReportKind kind, const std::string& text) {
        return print(kind).find(text) != std::string::npos;
    }
};

}  // namespace quorvel
