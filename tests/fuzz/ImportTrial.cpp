#include "storage/SheetFile.h"
#include "tests/fakes/MemoryFiles.h"
#include "tests/fuzz/Trials.h"
#include "tests/qrv/SheetTexts.h"

namespace quorvel::fuzz {

namespace {

constexpr const char* sheetFile = "/sheet.qrv";

Bytes written(const GradeSheet& sheet) {
    MemoryFiles files;
    if (!writeSheet(files, sheetFile, sheet)) throw Broken("an imported sheet cannot be written");
    return std::move(files.files.at(sheetFile));
}

void requireSame(const ImportedSheet& again, const GradeSheet& sheet, const char* what) {
    if (again.mistakes.count() > 0 || shownBy(again.sheet) != shownBy(sheet)) throw Broken(what);
}

}  // namespace

void tryImport(std::span<const std::byte> bytes) {
    ImportedSheet imported =
        importedFrom({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    if (imported.mistakes.count() > 0) return;
    imported.sheet.sheetTitle = imported.title.value_or("");

    const Bytes file = written(imported.sheet);
    RecordReader reader{std::span<const std::byte>(file)};
    if (checkSheet(reader).firstDamage) throw Broken("an imported sheet is damaged");
    const GradeSheet sheet = decodeSheet(file);
    if (shownBy(sheet) != shownBy(imported.sheet))
        throw Broken("an imported sheet is read as another one");
    requireSame(importedFrom(jsonOf(sheet)), sheet, "json does not give the sheet back");
    requireSame(importedFrom(csvOf(sheet)), sheet, "csv does not give the sheet back");
}

}  // namespace quorvel::fuzz
