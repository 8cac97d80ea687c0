#include "tests/faults/Saves.h"

#include <algorithm>
#include <memory>

#include "storage/RecordFile.h"
#include "storage/Settings.h"
#include "storage/SheetFile.h"
#include "tests/fakes/MemoryFiles.h"

namespace quorvel::faults {

namespace {

constexpr const char* programFolder = "/Quorvel";

using WriteSetting = void (*)(Files&, const WorkingState&);

Save settingSave(std::string_view name, WriteSetting write) {
    WorkingState state;
    state.places.programFolder = programFolder;
    state.schoolName = "School";
    state.teacherName = "Teacher";
    state.printFont = {"Arial", 9};
    state.recentFiles.fill("C:\\Quorvel\\Grades\\a.qrv");
    return {std::string(name), state.inProgramFolder(name),
            [state, write](Files& files) { write(files, state); }};
}

Save passwordSave() {
    RecordWriter record;
    record.taggedValue(std::string("secret"));
    const Bytes bytes(record.bytes().begin(), record.bytes().end());
    return {"password", "/machine/password",
            [bytes](Files& files) { writeRecords(files, "/machine/password", bytes); }};
}

}  // namespace

Save sheetSave(int students, int assignments) {
    const auto sheet = std::make_shared<GradeSheet>();
    sheet->sheetTitle = "Math - 1";
    sheet->recreate(students, assignments);
    for (int assignment = 1; assignment <= assignments; ++assignment)
        for (int student = 1; student <= students; ++student)
            sheet->setScore(assignment, student,
                            Score::ofText(std::to_string((assignment + student) % 100)));
    return {"sheet of " + std::to_string(students) + " x " + std::to_string(assignments),
            "/Quorvel/Grades/a.qrv",
            [sheet](Files& files) { writeSheet(files, "/Quorvel/Grades/a.qrv", *sheet); }};
}

std::vector<Save> everySave() {
    return {sheetSave(1, 1),
            sheetSave(30, 20),
            settingSave(settingsFile::gradingScale, writeGradingScale),
            settingSave(settingsFile::schoolName, writeSchoolName),
            settingSave(settingsFile::teacherName, writeTeacherName),
            settingSave(settingsFile::recentFiles, writeRecentFiles),
            settingSave(settingsFile::chosenPrintFont, writeChosenPrintFont),
            passwordSave()};
}

Bytes contentOf(const Save& save) {
    MemoryFiles files;
    save.write(files);
    return files.files.at(save.file);
}

Bytes over(const Bytes& old, const Bytes& content) {
    Bytes bytes = old;
    bytes.resize(std::max(old.size(), content.size()));
    std::ranges::copy(content, bytes.begin());
    return bytes;
}

}  // namespace quorvel::faults
