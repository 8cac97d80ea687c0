#include "storage/Settings.h"

#include <cmath>
#include <cstdint>
#include <utility>

#include "storage/Reading.h"
#include "storage/RecordFile.h"

namespace quorvel {

namespace {

/// Five minimums, the round-up text, and the one behind it that is read as well.
constexpr std::size_t gradingScaleRecords = 7;
constexpr std::size_t printFontRecords = 2;

/// The font in which six slips of the grade report fit a page.
constexpr std::string_view firstFontName = "Courier New";
constexpr float firstFontSize = 10;

GradingScale readGradingScale(RecordReader& reader) {
    GradingScale scale;
    for (std::int16_t& minimum : scale.minimums) minimum = reader.integer();
    if (scale.minimums.front() == 0) scale.minimums = GradingScale::defaultMinimums;
    scale.roundUp = reader.text();
    if (scale.roundUp.empty()) scale.roundUp = std::string(GradingScale::roundUpOff);
    return scale;
}

/// The first `records` records of a settings file, as far as they are there.
ReadBytes readSettingsFile(Files& files, const std::filesystem::path& programFolder,
                           std::string_view name, std::size_t records) {
    return readBytes(files, programFolder / name, records * recordSize);
}

std::string readName(Files& files, const std::filesystem::path& programFolder,
                     std::string_view name) {
    const ReadBytes read = readSettingsFile(files, programFolder, name, 1);
    return RecordReader(read.bytes).text();
}

void readRecentFiles(Files& files, WorkingState& state) {
    const ReadBytes read = readSettingsFile(files, state.places.programFolder,
                                            settingsFile::recentFiles, state.recentFiles.size());
    RecordReader reader(read.bytes);
    for (std::string& file : state.recentFiles) file = reader.text();
}

void writeSettingsFile(Files& files, const WorkingState& state, std::string_view name,
                       const RecordWriter& writer) {
    writeRecords(files, state.inProgramFolder(name), writer.bytes());
}

void writeName(Files& files, const WorkingState& state, std::string_view file,
               std::string_view name) {
    RecordWriter writer;
    writer.text(name);
    writeSettingsFile(files, state, file, writer);
}

void writePrintFont(Files& files, const WorkingState& state, std::string_view file) {
    RecordWriter writer;
    writer.taggedValue(state.printFont.name);
    writer.taggedValue(state.printFont.size);
    writeSettingsFile(files, state, file, writer);
}

}  // namespace

void readSettings(Files& files, WorkingState& state) {
    files.createFolder(gradesFolder(state));
    state.exitAfterSave = false;
    state.isDirty = false;
    state.reloadForNew = false;

    const ReadBytes scale = readSettingsFile(files, state.places.programFolder,
                                             settingsFile::gradingScale, gradingScaleRecords);
    RecordReader reader(scale.bytes);
    state.gradingScale = readGradingScale(reader);
    state.teacherName = reader.text();
    state.schoolName = readName(files, state.places.programFolder, settingsFile::schoolName);
    state.teacherName = readName(files, state.places.programFolder, settingsFile::teacherName);
    readRecentFiles(files, state);
}

void readPrintFont(Files& files, WorkingState& state) {
    const ReadBytes read = readSettingsFile(files, state.places.programFolder,
                                            settingsFile::printFont, printFontRecords);
    RecordReader reader(read.bytes);
    std::string name = textOf(reader.taggedValue());
    const auto size = static_cast<float>(numberOf(reader.taggedValue()));
    // No font has a size of 0 or less: such a value is as good as none.
    if (!name.empty() && size > 0 && std::isfinite(size)) {
        state.printFont = {std::move(name), size};
        return;
    }
    state.printFont = {std::string(firstFontName), firstFontSize};
    if (!isUnreadable(read.problem)) writePrintFont(files, state, settingsFile::printFont);
}

void writeGradingScale(Files& files, const WorkingState& state) {
    RecordWriter writer;
    for (const std::int16_t minimum : state.gradingScale.minimums) writer.integer(minimum);
    writer.text(state.gradingScale.roundUp);
    writeSettingsFile(files, state, settingsFile::gradingScale, writer);
}

void writeSchoolName(Files& files, const WorkingState& state) {
    writeName(files, state, settingsFile::schoolName, state.schoolName);
}

void writeTeacherName(Files& files, const WorkingState& state) {
    writeName(files, state, settingsFile::teacherName, state.teacherName);
}

void writeRecentFiles(Files& files, const WorkingState& state) {
    RecordWriter writer;
    for (const std::string& file : state.recentFiles) writer.text(file);
    writeSettingsFile(files, state, settingsFile::recentFiles, writer);
}

void writeChosenPrintFont(Files& files, const WorkingState& state) {
    writePrintFont(files, state, settingsFile::chosenPrintFont);
}

std::filesystem::path gradesFolder(const WorkingState& state) {
    return state.inProgramFolder("Grades");
}

ReportSettings readReportSettings(Files& files, const std::filesystem::path& programFolder) {
    const ReadBytes scale =
        readSettingsFile(files, programFolder, settingsFile::gradingScale, gradingScaleRecords);
    RecordReader reader(scale.bytes);
    return {.gradingScale = readGradingScale(reader),
            .schoolName = readName(files, programFolder, settingsFile::schoolName),
            .teacherName = readName(files, programFolder, settingsFile::teacherName)};
}

}  // namespace quorvel
