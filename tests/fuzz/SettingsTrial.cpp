#include <array>
#include <string_view>

#include "storage/Settings.h"
#include "tests/fakes/MemoryFiles.h"
#include "tests/fuzz/Trials.h"

namespace quorvel::fuzz {

namespace {

constexpr const char* programFolder = "/Quorvel";

constexpr std::array settingsFiles{settingsFile::gradingScale, settingsFile::schoolName,
                                   settingsFile::teacherName, settingsFile::recentFiles,
                                   settingsFile::printFont};

void require(bool holds, const char* what) {
    if (!holds) throw Broken(what);
}

WorkingState readEverything(Files& files) {
    WorkingState state;
    state.places.programFolder = programFolder;
    readSettings(files, state);
    readPrintFont(files, state);
    return state;
}

void writeEverything(MemoryFiles& files, const WorkingState& state) {
    writeGradingScale(files, state);
    writeSchoolName(files, state);
    writeTeacherName(files, state);
    writeRecentFiles(files, state);
    writeChosenPrintFont(files, state);
    // Start-up reads the font from another file than the one that a chosen font goes to.
    files.files[state.inProgramFolder(settingsFile::printFont)] =
        files.files.at(state.inProgramFolder(settingsFile::chosenPrintFont));
}

}  // namespace

void trySettings(std::span<const std::byte> bytes) {
    MemoryFiles files;
    for (const std::string_view file : settingsFiles)
        files.files[std::filesystem::path(programFolder) / file].assign(bytes.begin(), bytes.end());
    const WorkingState state = readEverything(files);

    writeEverything(files, state);
    const WorkingState again = readEverything(files);
    require(again.gradingScale == state.gradingScale, "another grading scale");
    require(again.schoolName == state.schoolName, "another school");
    require(again.teacherName == state.teacherName, "another teacher");
    require(again.recentFiles == state.recentFiles, "other recent files");
    require(again.printFont == state.printFont, "another font");

    const ReportSettings settings = readReportSettings(files, programFolder);
    require(settings.gradingScale == state.gradingScale, "another scale for reports");
    require(settings.schoolName == state.schoolName, "another school for reports");
    require(settings.teacherName == state.teacherName, "another teacher for reports");
}

}  // namespace quorvel::fuzz
