#include "tests/qrv/SheetTexts.h"

#include "qrv/Output.h"
#include "qrv/SheetCsv.h"
#include "qrv/SheetFromCsv.h"
#include "qrv/SheetJson.h"
#include "qrv/TextEncoding.h"

namespace quorvel {

namespace {

class TextFile final : public OutputFile {
  public:
    bool cut() override { return true; }
    bool flush() override { return true; }

    std::string text;

  private:
    std::size_t writeSome(std::span<const std::byte> bytes) override {
        text.append(reinterpret_cast<const char*>(bytes.data()), bytes.size());
        return bytes.size();
    }
};

const CodePage& page() {
    return CodePage::windows1252();
}

}  // namespace

std::string csvOf(const GradeSheet& sheet, bool forSpreadsheet) {
    TextFile file;
    TextWriter writer(file);
    writeSheetCsv(sheet, page(), forSpreadsheet, writer);
    writer.finish();
    return file.text;
}

std::string jsonOf(const GradeSheet& sheet) {
    TextFile file;
    TextWriter writer(file);
    writeSheetJson("class.qrv", sheet, page(), writer);
    writer.finish();
    return file.text;
}

ImportedSheet importedFrom(std::string_view file) {
    const std::string text = decodedText(std::as_bytes(std::span(file)), page());
    return isJson(text) ? sheetFromJson(text, page()) : sheetFromCsv(text, page());
}

std::string textOf(const Remarks& remarks) {
    std::string text;
    for (const Remark& remark : remarks.kept()) {
        text += remark.place + ": " + remark.reason + ": " + remark.text + '\n';
    }
    return text;
}

std::string shownBy(const GradeSheet& sheet) {
    std::string shown = std::to_string(sheet.studentCount()) + " students, " +
                        std::to_string(sheet.assignmentCount()) + " assignments\n";
    for (int assignment = 1; assignment <= sheet.assignmentCount(); ++assignment) {
        shown += '[' + sheet.assignmentName(assignment) + "] of " +
                 std::to_string(sheet.assignmentValue(assignment)) + '\n';
    }
    for (int student = 1; student <= sheet.studentCount(); ++student) {
        shown += '[' + sheet.studentName(student) + "] [" + sheet.studentAlias(student) + "]:";
        for (int assignment = 1; assignment <= sheet.assignmentCount(); ++assignment) {
            shown += " [" + sheet.score(assignment, student).text() + ']';
        }
        shown += '\n';
    }
    return shown;
}

}  // namespace quorvel
