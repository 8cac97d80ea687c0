#include "qrv/Csv.h"

#include <algorithm>
#include <utility>

namespace quorvel {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

class CsvReader {
  public:
    explicit CsvReader(std::string_view text) : rest_(text) {
        if (rest_.starts_with(byteOrderMark)) rest_.remove_prefix(byteOrderMark.size());
    }

    std::vector<CsvRow> rows() {
        std::vector<CsvRow> rows;
        while (!rest_.empty()) {
            if (CsvRow row = readRow(); !row.empty()) rows.push_back(std::move(row));
        }
        return rows;
    }

  private:
    bool atLineEnd() const {
        return rest_.empty() || rest_[0] == '\n' || rest_.starts_with("\r\n");
    }

    bool atSeparator() const {
        if (rest_.empty()) return false;
        return separator_ != 0 ? rest_[0] == separator_ : rest_[0] == ',' || rest_[0] == ';';
    }

    char take() {
        const char taken = rest_[0];
        rest_.remove_prefix(1);
        if (taken == '\n') ++line_;
        return taken;
    }

    CsvRow readRow() {
        CsvRow row;
        bool more = !atLineEnd();
        while (more) {
            row.push_back(readField(static_cast<int>(row.size()) + 1));
            more = atSeparator();
            if (more) separator_ = take();
        }
        while (!rest_.empty() && take() != '\n') {
        }
        return row;
    }

    CsvField readField(int column) {
        CsvField field{"", {line_, column}};
        if (!rest_.starts_with('"')) {
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
    char separator_ = 0;  // 0 until the first one tells
    int line_ = 1;
};

}  // namespace

std::vector<CsvRow> readCsv(std::string_view text) {
    return CsvReader(text).rows();
}

void appendCsvRow(std::string& csv, const std::vector<std::string>& fields) {
    const char* separator = "";
    for (const std::string& field : fields) {
        csv += separator;
        separator = ",";
        const bool quoted = field.find_first_of(",\"\r\n") != std::string::npos;
        if (!quoted) {
            csv += field;
            continue;
        }
        csv += '"';
        for (const char character : field) csv.append(character == '"' ? 2 : 1, character);
        csv += '"';
    }
    csv += '\n';
}

}  // namespace quorvel
