#include <algorithm>
#include <cmath>

#include "core/Errors.h"
#include "core/Numbers.h"
#include "qrv/Commands.h"
#include "qrv/Csv.h"
#include "qrv/Input.h"
#include "qrv/Problem.h"
#include "storage/RecordFile.h"
#include "storage/SheetFile.h"

namespace quorvel {

namespace {

/// The fields of every row that stand before those of the assignments.
constexpr std::size_t leadingFields = 2;
constexpr std::size_t leadingRows = 2;
constexpr double highestValue = 999;

std::string_view withoutOuterBlanks(std::string_view text) {
    const std::size_t first = std::min(text.find_first_not_of(" \t"), text.size());
    text.remove_prefix(first);
    return text.substr(0, text.find_last_not_of(" \t") + 1);
}

bool isNumber(std::string_view text) {
    return !text.empty() && leadingNumberText(text) == text;
}

/// Turns the fields of a CSV file into what a sheet holds, and refuses what it cannot hold.
class FieldReader {
  public:
    explicit FieldReader(const CodePage& codePage) : codePage_(codePage) {}

    std::string text(const CsvField& field) const {
        std::string text = codePage_.fromUtf8(field.text);
        if (codePage_.toUtf8(text) != field.text) {
            throw CsvError(field.place, "a character that the sheet's code page lacks");
        }
        if (text.size() > longestText) {
            throw CsvError(field.place,
                           "longer than " + std::to_string(longestText) + " characters");
        }
        return text;
    }

    std::int16_t value(const CsvField& field) const {
        const std::string_view text = withoutOuterBlanks(field.text);
        const double number = leadingNumber(text);
        const bool fits = isNumber(text) && number >= 0 && number <= highestValue;
        if (!fits || std::floor(number) != number) {
            throw CsvError(field.place, "a point value is a whole number from 0 to 999");
        }
        return static_cast<std::int16_t>(number);
    }

    Score score(const CsvField& field) const {
        const std::string_view text = withoutOuterBlanks(field.text);
        if (text.empty()) return {};
        if (text == "E" || text == "e") return Score::excused();
        if (!isNumber(text)) throw CsvError(field.place, "a score is a number, E or nothing");
        Score score = scoreFromEntry(text, codePage_);
        if (std::max(text.size(), score.text().size()) > longestTaggedText) {
            throw CsvError(field.place,
                           "longer than " + std::to_string(longestTaggedText) + " characters");
        }
        return score;
    }

  private:
    const CodePage& codePage_;
};

/// Throws CsvError unless the field reads `wanted`, in capitals or not.
void requireText(const CodePage& codePage, const CsvField& field, const std::string& wanted) {
    if (codePage.compareIgnoringCase(field.text, wanted) == 0) return;
    throw CsvError(field.place, wanted.empty() ? "this field is to be empty"
                                               : "this field is to read \"" + wanted + "\"");
}

void requireSameLength(const std::vector<CsvRow>& rows) {
    for (const CsvRow& row : rows) {
        if (row.size() == rows[0].size()) continue;
        const std::size_t column = std::min(row.size(), rows[0].size());
        throw CsvError({row[0].place.line, static_cast<int>(column) + 1},
                       "the line has " + std::to_string(row.size()) + " fields, the heading " +
                           std::to_string(rows[0].size()));
    }
}

void requireShape(const CodePage& codePage, const std::vector<CsvRow>& rows) {
    if (rows.empty() || rows[0].size() < leadingFields) {
        throw CsvError({}, "the heading line Name,Alias and the assignments' names is missing");
    }
    requireText(codePage, rows[0][0], "Name");
    requireText(codePage, rows[0][1], "Alias");
    if (rows.size() < leadingRows) {
        throw CsvError({rows[0][0].place.line + 1, 1}, "the line of point values is missing");
    }
    requireText(codePage, rows[1][0], "Value");
    requireSameLength(rows);
    requireText(codePage, rows[1][1], "");
    const auto limit = static_cast<std::size_t>(GradeSheet::maximumCount);
    if (rows[0].size() - leadingFields > limit) {
        throw CsvError(rows[0][leadingFields + limit].place,
                       "more assignments than a sheet can hold");
    }
    if (rows.size() - leadingRows > limit) {
        throw CsvError(rows[leadingRows + limit][0].place, "more students than a sheet can hold");
    }
}

std::optional<int> countBehind(std::size_t leading, std::size_t all) {
    if (all == leading) return std::nullopt;
    return static_cast<int>(all - leading);
}

GradeSheet sheetOf(const std::vector<CsvRow>& rows, const CodePage& codePage) {
    requireShape(codePage, rows);
    const FieldReader read(codePage);
    GradeSheet sheet;
    sheet.recreate(countBehind(leadingRows, rows.size()),
                   countBehind(leadingFields, rows[0].size()));
    std::vector<std::string> names;
    for (std::size_t column = leadingFields; column < rows[0].size(); ++column) {
        names.push_back(read.text(rows[0][column]));
    }
    for (int assignment = 1; assignment <= sheet.assignmentCount(); ++assignment) {
        const auto index = static_cast<std::size_t>(assignment) - 1;
        sheet.setAssignment(assignment, names[index], read.value(rows[1][leadingFields + index]));
    }
    for (int student = 1; student <= sheet.studentCount(); ++student) {
        const CsvRow& row = rows[leadingRows + static_cast<std::size_t>(student) - 1];
        const std::string name = read.text(row[0]);
        sheet.setStudent(student, name, read.text(row[1]));
        for (int assignment = 1; assignment <= sheet.assignmentCount(); ++assignment) {
            const Score score =
                read.score(row[leadingFields + static_cast<std::size_t>(assignment) - 1]);
            if (!score.isEmpty()) sheet.setScore(assignment, student, score);
        }
    }
    return sheet;
}

std::string sheetTitle(const Arguments& arguments, const CodePage& codePage) {
    const std::string given = arguments.value("title").value_or("");
    std::string title = codePage.fromUtf8(given);
    if (codePage.toUtf8(title) != given) {
        throw UsageError("--title has a character that the sheet's code page lacks");
    }
    if (title.size() > longestText) {
        throw UsageError("--title is longer than " + std::to_string(longestText) + " characters");
    }
    return title;
}

}  // namespace

Outcome importSheet(const Arguments& arguments, Environment& environment) {
    const auto output = arguments.value("output");
    if (!output) throw UsageError("import wants -o and the sheet to write");
    const std::string title = sheetTitle(arguments, environment.codePage);
    settingsFor(arguments, environment);
    const std::string& path = arguments.operands.at(0);
    const Bytes bytes = readFile(environment, path);
    const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    GradeSheet sheet;
    try {
        sheet = sheetOf(readCsv(text), environment.codePage);
    } catch (const CsvError& error) {
        throw InputError(path + ": " + error.what());
    }
    sheet.sheetTitle = title;
    requireWritable(*output);
    if (!writeSheet(environment.files, pathOf(*output), sheet)) {
        throw InputError(*output + ": cannot be written");
    }
    return {};
}

}  // namespace quorvel
