#include "qrv/SheetCsv.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/Numbers.h"
#include "qrv/Csv.h"
#include "qrv/SpreadsheetText.h"

namespace quorvel {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

class CsvWriter {
  public:
    CsvWriter(const CodePage& codePage, bool forSpreadsheet, TextWriter& writer)
        : codePage_(codePage), forSpreadsheet_(forSpreadsheet), writer_(writer) {}

    /// A text that is one behind an apostrophe already gets another one, which reading takes away
    /// again.
    std::string guarded(const std::string& text) const {
        const bool needsGuard =
            isGuardedFormula(text) || (forSpreadsheet_ && looksLikeFormula(text));
        return needsGuard ? '\'' + text : text;
    }

    std::string guardedScore(const std::string& text) const {
        return leadingNumberText(text) == text ? text : guarded(text);
    }

    void write(const std::vector<std::string>& row) { writeStart(row, "\n"); }

    /// The row whose fields behind the first ones are all empty: `emptyFields` in ready-made text.
    void write(const std::vector<std::string>& firstFields, const std::string& emptyFields) {
        writeStart(firstFields, "");
        writer_.write(emptyFields);
        writer_.write("\n");
    }

  private:
    void writeStart(const std::vector<std::string>& fields, std::string_view end) {
        line_.clear();
        appendCsvRow(line_, fields, end);
        writer_.write(codePage_.toUtf8(line_));
    }

    const CodePage& codePage_;
    bool forSpreadsheet_;
    TextWriter& writer_;
    std::string line_;
};

/// The last student who may have a score. A file can claim so many behind it that looking at each
/// of their cells would take long.
int lastWithScores(const GradeSheet& sheet) {
    int last = 0;
    for (int assignment = 1; assignment <= sheet.assignmentCount(); ++assignment) {
        last = std::max(last, sheet.scores(assignment).storedCount());
    }
    if (last == sheet.studentCount()) return last;
    // Behind its stored cells a column has zeros first, if any, and then only empty cells.
    for (int assignment = 1; assignment <= sheet.assignmentCount(); ++assignment) {
        if (!sheet.score(assignment, last + 1).isEmpty()) return sheet.studentCount();
    }
    return last;
}

}  // namespace

void writeSheetCsv(const GradeSheet& sheet, const CodePage& codePage, bool forSpreadsheet,
                   TextWriter& writer) {
    CsvWriter csv(codePage, forSpreadsheet, writer);
    if (forSpreadsheet) writer.write(byteOrderMark);
    std::vector<std::string> heading{"Name", "Alias"};
    std::vector<std::string> values{"Value", ""};
    for (int assignment = 1; assignment <= sheet.assignmentCount(); ++assignment) {
        heading.push_back(csv.guarded(sheet.assignmentName(assignment)));
        values.push_back(std::to_string(sheet.assignmentValue(assignment)));
    }
    csv.write(heading);
    csv.write(values);
    const int lastScored = lastWithScores(sheet);
    const std::string emptyFields(static_cast<std::size_t>(sheet.assignmentCount()), ',');
    std::vector<std::string> row(heading.size());
    for (int student = 1; student <= sheet.studentCount() && !writer.failed(); ++student) {
        row[0] = csv.guarded(sheet.studentName(student));
        row[1] = csv.guarded(sheet.studentAlias(student));
        if (student > lastScored) {
            csv.write({row[0], row[1]}, emptyFields);
            continue;
        }
        for (std::size_t column = 2; column < row.size(); ++column) {
            const Score score = sheet.score(static_cast<int>(column) - 1, student);
            row[column] = score.isEmpty() ? std::string() : csv.guardedScore(score.text());
        }
        csv.write(row);
    }
}

}  // namespace quorvel
