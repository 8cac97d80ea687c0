#include "qrv/Csv.h"

#include <algorithm>
#include <utility>

namespace quorvel {

namespace {

constexpr std::string_view separators = ",;\t";
/// The line with which some spreadsheets name the separator of those behind it.
constexpr std::string_view separatorLine = "sep=";

/// Some spreadsheets quote every field, so only quotes that not all fields have are a sign.
bool isWithoutContent(const CsvRow& row) {
    return std::ranges::all_of(row, [&row](const CsvField& field) {
        return field.text.empty() && field.quoted == row.front().quoted;
    });
}

class CsvReader {
  public:
    explicit CsvReader(std::string_view text) : rest_(text) {
        table_.endsWithLine = text.empty() || text.ends_with('\n') || text.ends_with('\r');
    }

    CsvTable table() {
        if (rest_.starts_with(separatorLine)) readSeparatorLine();
        while (!rest_.empty()) {
            CsvRow row = readRow();
            if (!isWithoutContent(row)) table_.rows.push_back(std::move(row));
        }
        if (separator_ != 0) table_.separator = separator_;
        return std::move(table_);
    }

  private:
    bool atLineEnd() const { return rest_.empty() || rest_[0] == '\n' || rest_[0] == '\r'; }

    bool atSeparator() const {
        if (rest_.empty()) return false;
        return separator_ != 0 ? rest_[0] == separator_
                               : separators.find(rest_[0]) != std::string_view::npos;
    }

    char take() {
        const char taken = rest_[0];
        rest_.remove_prefix(1);
        if (taken == '\n' || (taken == '\r' && !rest_.starts_with('\n'))) ++line_;
        return taken;
    }

    void takeLineEnd() {
        if (!rest_.empty() && take() == '\r' && rest_.starts_with('\n')) take();
    }

    void readSeparatorLine() {
        rest_.remove_prefix(separatorLine.size());
        if (!atSeparator()) throw CsvError({}, "the line sep= names neither , nor ; nor a tab");
        separator_ = take();
        if (!atLineEnd()) throw CsvError({}, "the line sep= names more than one character");
        takeLineEnd();
    }

    CsvRow readRow() {
        CsvRow row;
        bool more = true;
        while (more) {
            row.push_back(readField(static_cast<int>(row.size()) + 1));
            more = atSeparator();
            if (more) separator_ = take();
        }
        takeLineEnd();
        return row;
    }

    CsvField readField(int column) {
        CsvField field{.text = "", .place = {line_, column}, .quoted = rest_.starts_with('"')};
        if (!field.quoted) {
            while (!atLineEnd() && !atSeparator()) field.text += take();
            return field;
        }
        take();
        while (!rest_.empty()) {
            const char taken = take();
            const bool closes = taken == '"' && !rest_.starts_with('"');
            if (closes && (atSeparator() || atLineEnd())) return field;
            if (closes) throw CsvError(field.place, "there is more behind the closing quote");
            field.text += taken;
            if (taken == '"') take();
        }
        throw CsvError(field.place, "the closing quote is missing");
    }

    std::string_view rest_;
    CsvTable table_;
    char separator_ = 0;  // 0 until the first one tells
    int line_ = 1;
};

}  // namespace

std::string textOf(const CsvPlace& place) {
    return "line " + std::to_string(place.line) + ", column " + std::to_string(place.column);
}

CsvTable readCsv(std::string_view text) {
    return CsvReader(text).table();
}

void appendCsvRow(std::string& csv, const std::vector<std::string>& fields,
                  std::string_view lineEnd) {
    const bool isBlank = std::ranges::all_of(fields, &std::string::empty);
    for (std::size_t column = 0; column < fields.size(); ++column) {
        const std::string& field = fields[column];
        if (column > 0) csv += ',';
        const bool holdsRow = column == 0 && isBlank;
        if (holdsRow || field.find_first_of(",\"\r\n") != std::string::npos) {
            csv += '"';
            for (const char character : field) csv.append(character == '"' ? 2 : 1, character);
            csv += '"';
        } else {
            csv += field;
        }
    }
    csv += lineEnd;
}

}  // namespace quorvel
