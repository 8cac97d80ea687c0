#include <algorithm>

#include "core/Numbers.h"
#include "qrv/Commands.h"
#include "qrv/Input.h"

namespace quorvel {

namespace {

/// The text with a blank for each character that would break the table's lines or columns.
std::string tableText(std::string text) {
    std::ranges::replace_if(
        text, [](char c) { return c >= '\t' && c <= '\r'; }, ' ');
    return text;
}

std::string studentLine(const GradeSheet& sheet, int student) {
    const StudentFigures& figures = sheet.figures(student);
    std::string line = std::to_string(student);
    for (const std::string& text :
         {tableText(sheet.studentName(student)), tableText(sheet.studentAlias(student)),
          std::to_string(figures.pointsEarned), std::to_string(figures.pointsPossible),
          tenthsText(figures.percentageTenths), letterText(figures.letterGrade),
          std::to_string(figures.rank)}) {
        line += '\t' + text;
    }
    return line + '\n';
}

}  // namespace

Outcome figures(const Arguments& arguments, Environment& environment) {
    const ReportSettings settings = settingsFor(arguments, environment);
    const GradeSheet sheet =
        readSheet(environment, arguments.operands.at(0), settings.gradingScale);
    std::string table = "number\tname\talias\tearned\tpossible\tpercentage\tletter\trank\n";
    for (int student = 1; student <= sheet.studentCount(); ++student) {
        table += studentLine(sheet, student);
    }
    if (const auto& average = sheet.classAverage()) {
        table += "class\t" + tenthsText(average->tenths) + '\t' + letterText(average->letterGrade) +
                 '\n';
    }
    return {environment.codePage.toUtf8(table), ""};
}

}  // namespace quorvel
