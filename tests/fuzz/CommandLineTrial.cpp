#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "qrv/Qrv.h"
#include "storage/SheetFile.h"
#include "tests/fakes/MemoryFiles.h"
#include "tests/fuzz/Trials.h"

namespace quorvel::fuzz {

namespace {

constexpr std::string_view csv =
    "Name,Alias,Quiz,Test\nValue,,20,100\n\"Doe, Jane\",Jane,17,95\n\"Roe, Rick\",Rick,E,\n";

/// Each line is a word.
std::vector<std::string> wordsIn(std::string_view text) {
    std::vector<std::string> words;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        words.emplace_back(text.substr(0, end));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return words;
}

GradeSheet someSheet() {
    GradeSheet sheet;
    sheet.sheetTitle = "Math - 1";
    sheet.addStudent("Doe, Jane", "Jane");
    sheet.addAssignment("Quiz", 20);
    return sheet;
}

Bytes bytesOf(std::string_view text) {
    const auto* const start = reinterpret_cast<const std::byte*>(text.data());
    return {start, start + text.size()};
}

/// Whether the words can lead only to files that are in memory here: a device would be asked.
bool staysHere(std::string_view text) {
    return text.find_first_of(std::string_view("/\0", 2)) == std::string_view::npos;
}

}  // namespace

void tryCommandLine(std::span<const std::byte> bytes) {
    const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    if (!staysHere(text)) return;
    MemoryFiles files;
    writeSheet(files, pathOf("a.qrv"), someSheet());
    files.files[pathOf("cut.qrv")] = files.files.at(pathOf("a.qrv"));
    files.files[pathOf("cut.qrv")].resize(500);
    files.files[pathOf("a.csv")] = bytesOf(csv);
    Environment environment{files, CodePage::windows1252(), {}, true};
    runQrv(wordsIn(text), environment);
}

}  // namespace quorvel::fuzz
