#include <filesystem>
#include <optional>
#include <span>
#include <system_error>
#include <utility>

#include "qrv/Commands.h"
#include "qrv/Complaints.h"
#include "qrv/FieldRules.h"
#include "qrv/ImportedSheet.h"
#include "qrv/Input.h"
#include "qrv/Output.h"
#include "qrv/Problem.h"
#include "qrv/SheetFromCsv.h"
#include "qrv/SheetJson.h"
#include "qrv/TextEncoding.h"
#include "storage/Reading.h"
#include "storage/SheetFile.h"

namespace quorvel {

namespace {

/// What is shown of a text that a remark is about.
constexpr std::size_t longestExcerpt = 60;

Bytes readAll(const std::string& name, Environment& environment) {
    const auto file = openInput(name, environment);
    Bytes bytes;
    std::size_t filled = 0;
    do {
        bytes.resize(filled + blockSize);
        const auto count = file->read(std::span(bytes).subspan(filled));
        if (!count) throw brokenOff(name);
        filled += *count;
    } while (filled == bytes.size());
    bytes.resize(filled);
    return bytes;
}

ImportedSheet readImport(const std::string& name, Environment& environment) {
    const std::string text = decodedText(readAll(name, environment), environment.codePage);
    return isJson(text) ? sheetFromJson(text, environment.codePage)
                        : sheetFromCsv(text, environment.codePage);
}

/// Cut between two characters of UTF-8.
std::string excerpt(std::string text) {
    if (text.size() <= longestExcerpt) return text;
    std::size_t end = longestExcerpt;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;
    return text.substr(0, end) + "...";
}

void tell(const std::string& name, const Remarks& remarks, const std::string& kind) {
    for (const Remark& remark : remarks.kept()) {
        std::string complaint = name;
        complaint.append(": ").append(remark.place).append(": ").append(kind).append(remark.reason);
        if (!remark.text.empty()) complaint += ": \"" + excerpt(remark.text) + '"';
        complain(complaint);
    }
    const std::size_t further = remarks.count() - remarks.kept().size();
    if (further > 0) complain(name + ": " + kind + "and " + std::to_string(further) + " more");
}

std::string givenTitle(const std::string& given, const CodePage& codePage) {
    try {
        return FieldRules(codePage).text(given);
    } catch (const FieldError& error) {
        throw UsageError(std::string("--title: ") + error.what());
    }
}

/// That of the sheet which is to be replaced; nothing where there is none that holds one.
std::string titleInPlace(const std::optional<std::string>& output, Environment& environment) {
    constexpr std::uint64_t titleRecord = 3;
    std::error_code error;
    if (!output || !std::filesystem::is_regular_file(pathOf(*output), error)) return "";
    const auto file = openInput(*output, environment);
    RecordReader reader(*file);
    const SheetCheck old = checkSheet(reader);
    const bool hasTitle = !old.firstDamage || old.firstDamage->number > titleRecord;
    return hasTitle ? old.sheetTitle : "";
}

}  // namespace

ExitCode importSheet(const Request& request, Environment& environment) {
    const std::string& name = request.files.front();
    std::optional<std::string> title;
    if (request.title) title = givenTitle(*request.title, environment.codePage);
    settingsFor(request, "", environment);
    ImportedSheet imported = readImport(name, environment);
    tell(name, imported.mistakes, "");
    if (imported.mistakes.count() > 0) return ExitCode::InputFailed;
    tell(name, imported.warnings, "warning: ");
    if (!title) title = imported.title;
    imported.sheet.sheetTitle = title ? *title : titleInPlace(request.output, environment);
    writeResult(request.output, environment, [&](OutputFile& file) {
        RecordStream stream(file);
        writeSheet(stream, imported.sheet);
        stream.finish();
        return stream.failed() ? Outcome::Failed : Outcome::Written;
    });
    return ExitCode::Done;
}

}  // namespace quorvel
