#include <algorithm>
#include <string_view>
#include <vector>

#include "core/Numbers.h"
#include "qrv/Commands.h"
#include "qrv/Csv.h"
#include "qrv/Input.h"
#include "qrv/Output.h"
#include "qrv/SheetJson.h"

namespace quorvel {

namespace {

using Row = std::vector<std::string>;

/// The text with a blank for each character that would break the table's lines or columns.
std::string tableText(std::string text) {
    std::ranges::replace_if(
        text, [](char c) { return c >= '\t' && c <= '\r'; }, ' ');
    return text;
}

/// A table, its rows led by the sheet's name where there are several.
class FiguresTable {
  public:
    FiguresTable(const Request& request, const CodePage& codePage)
        : codePage_(codePage),
          isCsv_(request.format == "csv"),
          withClass_(!isCsv_ && !request.withoutClass),
          withSheet_(request.files.size() > 1) {}

    void add(const std::string& name, const GradeSheet& sheet, TextWriter& writer) {
        if (!hasHeading_) {
            write(
                writer, "sheet",
                {"number", "name", "alias", "earned", "possible", "percentage", "letter", "rank"});
            hasHeading_ = true;
        }
        for (int student = 1; student <= sheet.studentCount(); ++student) {
            const StudentFigures& figures = sheet.figures(student);
            write(writer, name,
                  {std::to_string(student), codePage_.toUtf8(sheet.studentName(student)),
                   codePage_.toUtf8(sheet.studentAlias(student)),
                   std::to_string(figures.pointsEarned), std::to_string(figures.pointsPossible),
                   tenthsText(figures.percentageTenths), letterText(figures.letterGrade),
                   std::to_string(figures.rank)});
        }
        const auto& average = sheet.classAverage();
        if (!withClass_ || !average) return;
        write(writer, name,
              {"class", tenthsText(average->tenths), letterText(average->letterGrade)});
    }

  private:
    void write(TextWriter& writer, const std::string& name, Row row) const {
        if (withSheet_) row.insert(row.begin(), name);
        std::string line;
        if (isCsv_) {
            appendCsvRow(line, row, "\r\n");
        } else {
            for (const std::string& text : row) line += tableText(text) + '\t';
            line.back() = '\n';
        }
        writer.write(line);
    }

    const CodePage& codePage_;
    bool isCsv_;
    bool withClass_;
    bool withSheet_;
    bool hasHeading_ = false;
};

}  // namespace

ExitCode figures(const Request& request, Environment& environment) {
    FiguresTable table(request, environment.codePage);
    return writeForEachSheet(
        request, environment, "", [&](const std::string& name, SheetParts& parts) {
            const OpenedSheet opened = openSheet(name, request, environment);
            if (request.format == "json") {
                writeFiguresJson(name, opened.sheet, environment.codePage, parts.next());
            } else {
                table.add(name, opened.sheet, parts.next());
            }
            return opened.exitCode();
        });
}

}  // namespace quorvel
