#include "commands/FileUtilities.h"

#include <optional>
#include <string>

#include "core/Paths.h"
#include "storage/Reading.h"
#include "storage/Settings.h"
#include "storage/SheetFile.h"

namespace quorvel {

namespace {

/// Copies a file to the floppy drive under its own name. Nobody is told when that fails.
void copyToFloppy(CommandContext& context, const std::filesystem::path& file) {
    std::filesystem::path copy = "A:\\";
    copy += file.filename();
    context.ports.files.copy(file, copy);
}

/// True when the disk was inserted and the copying may begin.
bool askForDisk(CommandContext& context) {
    return context.ports.dialogs.message(
               {.text = "Please insert a disk into the A: (Floppy) Drive to begin the backup.",
                .title = "Backup",
                .buttons = Buttons::OkCancel}) == Answer::Ok;
}

}  // namespace

void mnuBackup1(CommandContext& context) {
    WorkingState& state = context.state;
    if (state.currentPath.empty()) {
        context.ports.dialogs.message(
            {.text = "The file you currently are working on is not saved."});
        return;
    }
    if (!askForDisk(context)) return;
    state.sheetFileName = fileNameText(pathText(state.currentPath, *state.codePage));
    copyToFloppy(context, state.inProgramFolder(state.currentPath));
}

void mnuBackup(CommandContext& context) {
    if (!askForDisk(context)) return;
    for (const std::filesystem::path& file :
         filesEndingWith(context.ports.files, gradesFolder(context.state), ".qrv"))
        copyToFloppy(context, file);
}

void mnuCopy(CommandContext& context) {
    context.state.isDirty = true;
    Dialogs& dialogs = context.ports.dialogs;
    const Answer goOn =
        dialogs.message({.text = "WARNING: This will delete all students and grades currently on "
                                 "this grade sheet!  Continue?",
                         .title = "Warning!",
                         .buttons = Buttons::YesNo});
    if (goOn != Answer::Yes) {
        dialogs.message({.text = "Copy Students Cancelled"});
        return;
    }
    const std::optional<std::filesystem::path> file =
        dialogs.openFile("Copy Students From...", gradesFolder(context.state));
    if (!file) return;

    const SheetReading other = readSheet(context.ports.files, *file);
    if (isUnreadable(other.problem)) return;
    context.sheet.takeOverRoster(other.sheet);
    context.window.setStudentScrollMaximum(context.sheet.studentCount());
    context.window.RefreshGrid();
}

}  // namespace quorvel
