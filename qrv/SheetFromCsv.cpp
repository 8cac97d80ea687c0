#include "qrv/SheetFromCsv.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "core/Numbers.h"
#include "qrv/Csv.h"
#include "qrv/FieldRules.h"
#include "qrv/SpreadsheetText.h"

namespace quorvel {

namespace {

constexpr std::size_t nameColumn = 0;
constexpr std::size_t aliasColumn = 1;
/// The columns before those of the assignments, and the rows before those of the students.
constexpr std::size_t leadingColumns = 2;
constexpr std::size_t leadingRows = 2;
constexpr auto mostOfAKind = static_cast<std::size_t>(GradeSheet::maximumCount);

/// A field, or the place where a short row lacks it.
struct Cell {
    std::string_view text;
    CsvPlace place;
};

Cell cellAt(const CsvRow& row, std::size_t column) {
    if (column < row.size()) return {row[column].text, row[column].place};
    return {"", {row.front().place.line, static_cast<int>(column) + 1}};
}

bool hasContent(const CsvRow& row, std::size_t column) {
    return column < row.size() && !row[column].text.empty();
}

class CsvSheetReader {
  public:
    CsvSheetReader(CsvTable table, const CodePage& codePage)
        : table_(std::move(table)), rules_(codePage), codePage_(codePage) {}

    ImportedSheet read() {
        requireHeadings();
        findColumns();
        requireNothingFurther();
        const std::size_t students = table_.rows.size() - leadingRows;
        if (students > mostOfAKind) {
            throw CsvError(table_.rows[leadingRows + mostOfAKind][0].place,
                           "more students than a sheet can hold");
        }
        result_.sheet.recreate(countOf(students), countOf(columns_.size()));
        readAssignments();
        for (std::size_t student = 0; student < students; ++student) {
            readStudent(static_cast<int>(student) + 1, table_.rows[leadingRows + student]);
        }
        return std::move(result_);
    }

  private:
    static std::optional<int> countOf(std::size_t count) {
        if (count == 0) return std::nullopt;
        return static_cast<int>(count);
    }

    /// What cannot be made out without: any other mistake leaves the rest to be looked at.
    void requireHeadings() {
        const auto& rows = table_.rows;
        if (rows.empty()) throw CsvError({}, "the heading line Name,Alias is missing");
        requireText(cellAt(rows[0], nameColumn), "Name");
        requireText(cellAt(rows[0], aliasColumn), "Alias");
        if (rows.size() < leadingRows) {
            throw CsvError({rows[0][0].place.line + 1, 1}, "the line of point values is missing");
        }
        requireText(cellAt(rows[1], nameColumn), "Value");
    }

    void requireText(const Cell& cell, const std::string& wanted) {
        if (codePage_.compareIgnoringCase(cell.text, wanted) == 0) return;
        throw CsvError(cell.place, "this field is to read " + wanted, cell.text);
    }

    void findColumns() {
        std::size_t width = 0;
        for (const CsvRow& row : table_.rows) width = std::max(width, row.size());
        std::vector<bool> filled(width, false);
        for (const CsvRow& row : table_.rows) {
            for (std::size_t column = 0; column < row.size(); ++column) {
                if (hasContent(row, column)) filled[column] = true;
            }
        }
        const std::size_t named = table_.rows[0].size();
        for (std::size_t column = leadingColumns; column < std::min(width, named); ++column) {
            if (filled[column]) columns_.push_back(column);
        }
        if (columns_.size() > mostOfAKind) {
            throw CsvError(table_.rows[0][columns_[mostOfAKind]].place,
                           "more assignments than a sheet can hold");
        }
    }

    void requireNothingFurther() {
        if (hasContent(table_.rows[1], aliasColumn)) {
            refuse(cellAt(table_.rows[1], aliasColumn), "this field is to be empty");
        }
        const std::size_t named = table_.rows[0].size();
        for (const CsvRow& row : table_.rows) {
            for (std::size_t column = named; column < row.size(); ++column) {
                if (hasContent(row, column)) {
                    refuse(cellAt(row, column), "the heading has no field here");
                }
            }
        }
        const CsvRow& last = table_.rows.back();
        if (!table_.endsWithLine && last.size() < named) {
            refuse(cellAt(last, last.size()), "the file breaks off within this line");
        }
    }

    void readAssignments() {
        for (std::size_t index = 0; index < columns_.size(); ++index) {
            const std::string name =
                text(cellAt(table_.rows[0], columns_[index]), FieldRules::longestAssignmentName);
            const Cell value = cellAt(table_.rows[1], columns_[index]);
            result_.sheet.setAssignment(static_cast<int>(index) + 1, name, accepted(value, [&] {
                                            return rules_.value(number(value));
                                        }));
        }
    }

    void readStudent(int student, const CsvRow& row) {
        const std::string name = text(cellAt(row, nameColumn), std::string::npos);
        result_.sheet.setStudent(student, name,
                                 text(cellAt(row, aliasColumn), FieldRules::longestAlias));
        for (std::size_t index = 0; index < columns_.size(); ++index) {
            const Cell cell = cellAt(row, columns_[index]);
            if (cell.text.empty()) continue;
            result_.sheet.setScore(static_cast<int>(index) + 1, student,
                                   accepted(cell, [&] { return rules_.score(number(cell)); }));
        }
    }

    /// `usual` is the length that the window keeps to; a longer text is worth a warning.
    std::string text(const Cell& cell, std::size_t usual) {
        std::string text = accepted(cell, [&] { return rules_.text(withoutGuard(cell.text)); });
        if (text.size() > usual) {
            result_.warnings.add(textOf(cell.place),
                                 "longer than " + std::to_string(usual) + " characters", cell.text);
        }
        return text;
    }

    /// The number with a decimal point, which the file may write as a comma where that is not what
    /// separates its fields. All numbers of a file have the same mark.
    std::string number(const Cell& cell) {
        std::string number(cell.text);
        const std::size_t place = number.find_first_of(table_.separator == ',' ? "." : ".,");
        if (place == std::string::npos) return number;
        const char mark = std::exchange(number[place], '.');
        if (leadingNumberText(number) != number) return number;
        if (decimalMark_.value_or(mark) != mark) {
            throw FieldError(std::string("numbers before this one have a decimal ") +
                             (mark == '.' ? "comma" : "point"));
        }
        decimalMark_ = mark;
        return number;
    }

    /// What `take` makes of a cell, or an empty value where it refuses it.
    template <typename Take>
    auto accepted(const Cell& cell, const Take& take) -> decltype(take()) {
        try {
            return take();
        } catch (const FieldError& error) {
            refuse(cell, error.what());
            return {};
        }
    }

    void refuse(const Cell& cell, const std::string& reason) {
        result_.mistakes.add(textOf(cell.place), reason, cell.text);
    }

    CsvTable table_;
    FieldRules rules_;
    const CodePage& codePage_;
    std::vector<std::size_t> columns_;  // of the assignments
    std::optional<char> decimalMark_;
    ImportedSheet result_;
};

}  // namespace

ImportedSheet sheetFromCsv(std::string_view text, const CodePage& codePage) {
    try {
        return CsvSheetReader(readCsv(text), codePage).read();
    } catch (const CsvError& error) {
        ImportedSheet unreadable;
        unreadable.mistakes.add(textOf(error.place), error.what(), error.text);
        return unreadable;
    }
}

}  // namespace quorvel
