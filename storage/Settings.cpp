#include "storage/Settings.h"

#include <cmath>
#include <cstdint>
#include <utility>

#include "storage/RecentFiles.h"
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

std::string readName(Files& files, const std::filesystem::path& programFolder,
                     std::string_view name) {
    const Bytes bytes = readSettingsFile(files, programFolder, name, 1);
    return RecordReader(bytes).text();
}

void writeSettingsFile(CommandContext& context, std::string_view name, const RecordWriter& writer) {
    writeRecords(context.ports.files, context.state.inProgramFolder(name), writer.bytes());
}

void writeName(CommandContext& context, std::string_view file, std::string_view name) {
    RecordWriter writer;
    writer.text(name);
    writeSettingsFile(context, file, writer);
}

void writePrintFont(CommandContext& context, std::string_view file) {
    const PrintFont& font = context.state.printFont;
    RecordWriter writer;
    writer.taggedValue(font.name);
    writer.taggedValue(font.size);
    writeSettingsFile(context, file, writer);
}

}  // namespace

void readSettings(CommandContext& context) {
    WorkingState& state = context.state;
    Files& files = context.ports.files;
    files.createFolder(gradesFolder(state));
    state.exitAfterSave = false;
    state.isDirty = false;
    reloadForNew = false;

    const Bytes scale = readSettingsFile(files, state.programFolder, settingsFile::gradingScale,
                                         gradingScaleRecords);
    RecordReader reader(scale);
    state.gradingScale = readGradingScale(reader);
    state.teacherName = reader.text();
    state.schoolName = readName(files, state.programFolder, settingsFile::schoolName);
    state.teacherName = readName(files, state.programFolder, settingsFile::teacherName);
    readRecentFiles(context);
}

void readPrintFont(CommandContext& context) {
    WorkingState& state = context.state;
    const Bytes bytes = readSettingsFile(context.ports.files, state.programFolder,
                                         settingsFile::printFont, printFontRecords);
    RecordReader reader(bytes);
    std::string name = textOf(reader.taggedValue());
    const auto size = static_cast<float>(numberOf(reader.taggedValue()));
    // No font has a size of 0 or less: such a value is as good as none.
    if (!name.empty() && size > 0 && std::isfinite(size)) {
        state.printFont = {std::move(name), size};
        return;
    }
    state.printFont = {std::string(firstFontName), firstFontSize};
    writePrintFont(context, settingsFile::printFont);
}

void writeGradingScale(CommandContext& context) {
    const GradingScale& scale = context.state.gradingScale;
    RecordWriter writer;
    for (const std::int16_t minimum : scale.minimums) writer.integer(minimum);
    writer.text(scale.roundUp);
    writeSettingsFile(context, settingsFile::gradingScale, writer);
}

void writeSchoolName(CommandContext& context) {
    writeName(context, settingsFile::schoolName, context.state.schoolName);
}

void writeTeacherName(CommandContext& context) {
    writeName(context, settingsFile::teacherName, context.state.teacherName);
}

void writeChosenPrintFont(CommandContext& context) {
    writePrintFont(context, settingsFile::chosenPrintFont);
}

std::filesystem::path gradesFolder(const WorkingState& state) {
    return state.inProgramFolder("Grades");
}

Bytes readSettingsFile(Files& files, const std::filesystem::path& programFolder,
                       std::string_view name, std::size_t records) {
    return files.read(programFolder / name, records * recordSize).value_or(Bytes());
}

ReportSettings readReportSettings(Files& files, const std::filesystem::path& programFolder) {
    const Bytes scale =
        readSettingsFile(files, programFolder, settingsFile::gradingScale, gradingScaleRecords);
    RecordReader reader(scale);
    return {.gradingScale = readGradingScale(reader),
            .schoolName = readName(files, programFolder, settingsFile::schoolName),
            .teacherName = readName(files, programFolder, settingsFile::teacherName)};
}

}  // namespace quorvel
