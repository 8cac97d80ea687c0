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

struct CsvField {
    std::string text;
    CsvPlace place;
};

using CsvRow = std::vector<CsvField>;

/// What is wrong with a CSV file, and where.
class CsvError : public std::runtime_error {
  public:
    CsvError(CsvPlace place, const std::string& reason)
        : std::runtime_error("line " + std::to_string(place.line) + ", column " +
                             std::to_string(place.column) + ": " + reason) {}
};

/// The rows of a CSV text as spreadsheets write it: fields separated by commas, or by semicolons
/// where the first separator of the first line is one; fields in quotes may hold separators, line
/// breaks and doubled quotes; lines end with LF or CR LF. Empty lines are left out, and so is a
/// byte order mark. Throws CsvError for a quoted field that does not end properly.
std::vector<CsvRow> readCsv(std::string_view text);

/// Adds one row to `csv`, in quotes what needs them.
void appendCsvRow(std::string& csv, const std::vector<std::string>& fields);

}  // namespace quorvel
