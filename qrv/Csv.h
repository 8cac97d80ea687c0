#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace quorvel {

/// A place in a CSV file: the line as a text editor counts it and the field in it, both from 1.
struct CsvPlace {
    int line = 1;
    int column = 1;
};

/// "line 3, column 4".
std::string textOf(const CsvPlace& place);

struct CsvField {
    std::string text;
    CsvPlace place;
    bool quoted = false;
};

using CsvRow = std::vector<CsvField>;

struct CsvTable {
    /// Rows without any content are left out, unless quotes tell that an empty first field is
    /// meant.
    std::vector<CsvRow> rows;
    char separator = ',';
    /// False where the file breaks off within its last row.
    bool endsWithLine = true;
};

/// Text that cannot be made out as CSV, where, and what stands there.
class CsvError : public std::runtime_error {
  public:
    CsvError(CsvPlace where, const std::string& reason, std::string_view found = "")
        : std::runtime_error(reason), place(where), text(found) {}

    CsvPlace place;
    std::string text;
};

/// The rows of a CSV text as spreadsheets write it: fields separated by commas, semicolons or tabs,
/// whichever the first line has first outside quotes or its "sep=" names; fields in quotes may hold
/// separators, line breaks and doubled quotes; lines end with CR LF, LF or CR. Throws CsvError for
/// a quoted field that does not end properly and a "sep=" that names another separator.
CsvTable readCsv(std::string_view text);

/// Adds one row to `csv`, in quotes what needs them. Where all fields are empty the first one is in
/// quotes, so that it stays a row.
void appendCsvRow(std::string& csv, const std::vector<std::string>& fields,
                  std::string_view lineEnd = "\n");

}  // namespace quorvel
