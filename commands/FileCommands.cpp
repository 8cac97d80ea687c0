#include "commands/FileCommands.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "commands/RecentFiles.h"
#include "commands/Recovery.h"
#include "core/Paths.h"
#include "storage/Settings.h"
#include "storage/SheetFile.h"

namespace quorvel {

namespace {

enum class SaveOutcome { Saved, Canceled, Failed };

bool confirm(CommandContext& context, std::string_view text, std::string_view title) {
    return context.ports.dialogs.message(
               {.text = text, .title = title, .buttons = Buttons::YesNo}) == Answer::Yes;
}

std::string currentFileName(const WorkingState& state) {
    return std::string(fileNameText(pathText(state.currentPath, *state.codePage)));
}

/// What a save does when it is done, as its hooks ask.
void runSaveHooks(CommandContext& context) {
    if (context.state.afterSaveAction == AfterSaveAction::Unload) context.window.close();
    if (context.state.exitAfterSave) context.window.close();
}

/// What the file is now, wherever a link leads.
std::optional<FileStamp> stampOf(Files& files, const std::filesystem::path& file) {
    return files.stampOf(files.followLink(file));
}

/// True where another program wrote the sheet's file since this run loaded or saved it.
bool somebodyElseChangedTheFile(CommandContext& context) {
    const WorkingState& state = context.state;
    const std::filesystem::path file = state.inProgramFolder(state.currentPath);
    if (file != state.knownFile.file || !state.knownFile.stamp) return false;
    const auto stamp = stampOf(context.ports.files, file);
    return stamp && stamp != state.knownFile.stamp;
}

SaveOutcome saveSheet(CommandContext& context) {
    WorkingState& state = context.state;
    Files& files = context.ports.files;
    const std::filesystem::path pathBefore = state.currentPath;
    const std::string nameBefore = state.sheetFileName;
    // The dialog's question about replacing is the warning that somebody else's work is there.
    if (state.saveMode == SaveMode::SaveAs || somebodyElseChangedTheFile(context))
        state.currentPath.clear();
    if (state.currentPath.empty()) {
        const auto chosen = context.ports.dialogs.saveFile("Save Gradesheet", gradesFolder(state));
        if (!chosen || chosen->empty()) {
            state.currentPath = pathBefore;
            return SaveOutcome::Canceled;
        }
        state.currentPath = *chosen;
    }
    state.sheetFileName = currentFileName(state);
    updateRecentFiles(context);
    const std::filesystem::path file = state.inProgramFolder(state.currentPath);
    if (!writeSheet(files, file, context.sheet)) {
        state.currentPath = pathBefore;
        state.sheetFileName = nameBefore;
        state.saveMode = SaveMode::SaveAs;
        return SaveOutcome::Failed;
    }
    state.knownFile = {file, stampOf(files, file)};
    context.window.setCaption(state.sheetFileName);
    state.saveMode = SaveMode::Save;
    state.isDirty = false;
    runSaveHooks(context);
    return SaveOutcome::Saved;
}

bool wantsToSave(CommandContext& context) {
    return confirm(context, "Do you want to save the grade sheet you are currently working on?",
                   "Save Current Grade Sheet?");
}

bool mayDiscardSheet(CommandContext& context) {
    if (!context.state.isDirty) return true;
    if (confirm(context, "Are you sure you want to load a new grade sheet without saving this one?",
                "Load File")) {
        return true;
    }
    context.ports.dialogs.message(
        {.text = "Load File Canceled", .title = "Cancelation", .icon = Icon::Critical});
    return false;
}

/// What a load ends with, whatever it gave.
void showLoadedSheet(CommandContext& context, GradeSheet sheet) {
    WorkingState& state = context.state;
    context.sheet.replaceBy(std::move(sheet));
    state.openFromRecent = false;
    state.isDirty = false;
    context.window.resetHeadings();
    context.window.RefreshGrid();
}

/// A file that is there and cannot be read leaves an empty sheet that has no file: no save can
/// reach it unasked.
void showSheetWithoutFile(CommandContext& context) {
    WorkingState& state = context.state;
    state.currentPath.clear();
    state.sheetFileName.clear();
    state.saveMode = SaveMode::SaveAs;
    context.window.setCaption(programName);
    showLoadedSheet(context, GradeSheet());
}

void loadSheet(CommandContext& context) {
    WorkingState& state = context.state;
    if (!mayDiscardSheet(context)) return;
    // Cancelling an ordinary Open leaves no path: the next save asks for one.
    if (!state.openFromRecent) state.currentPath.clear();
    const auto chosen = context.ports.dialogs.openFile("Open Gradesheet", gradesFolder(state));
    if (!chosen || chosen->empty()) return;
    const std::filesystem::path file = state.inProgramFolder(*chosen);
    // Taken before the reading: a change during it is seen by the next save.
    KnownFile known{file, stampOf(context.ports.files, file)};
    SheetReading reading = readSheet(context.ports.files, file);
    if (isUnreadable(reading.problem)) return showSheetWithoutFile(context);

    state.currentPath = *chosen;
    state.sheetFileName = currentFileName(state);
    state.knownFile = std::move(known);
    updateRecentFiles(context);
    state.saveMode = SaveMode::Save;
    context.window.setCaption(state.sheetFileName);
    showLoadedSheet(context, std::move(reading.sheet));
}

}  // namespace

void mnuNew(CommandContext& context) {
    if (!confirm(context, "Are you sure you want to create a new grade sheet?",
                 "Make New Grading Sheet")) {
        return;
    }
    if (!offerToSave(context)) return;
    context.state.isDirty = false;
    context.state.reloadForNew = true;
    context.window.reload();
}

void mnuOpen(CommandContext& context) {
    context.state.currentPath.clear();
    loadSheet(context);
}

void mnuPFile(CommandContext& context, int index) {
    WorkingState& state = context.state;
    const MenuEntry& entry = state.mnuPFile.at(static_cast<std::size_t>(index) - 1);
    state.openFromRecent = true;
    // The entry's enabled state and not its caption: files named True exist.
    state.currentPath = entry.enabled ? "True" : "False";
    loadSheet(context);
}

void mnuSave(CommandContext& context) {
    saveSheet(context);
}

void mnuSaveAs(CommandContext& context) {
    const SaveMode modeBefore = context.state.saveMode;
    context.state.saveMode = SaveMode::SaveAs;
    if (saveSheet(context) == SaveOutcome::Canceled) context.state.saveMode = modeBefore;
}

void mnuExit(CommandContext& context) {
    if (!confirm(context, "Are you sure you want to exit?", "Exit Check")) return;
    if (context.window.close()) context.window.endProgram();
}

bool offerToSave(CommandContext& context) {
    if (!context.state.isDirty || !wantsToSave(context)) return true;
    if (saveSheet(context) != SaveOutcome::Failed || writeRecoveredSheet(context)) return true;
    return context.ports.dialogs.message({.text =
                                              "The grade sheet could not be saved anywhere.  Do "
                                              "you want to go back to it?",
                                          .icon = Icon::Critical,
                                          .buttons = Buttons::YesNo}) == Answer::No;
}

void keepBeforeSessionEnds(CommandContext& context) {
    if (context.state.isDirty) writeRecoveredSheet(context);
}

void offerToSaveBeforeSessionEnds(CommandContext& context) {
    if (!context.state.isDirty) return;
    const auto copy = writeRecoveredSheet(context);
    const bool settled = !wantsToSave(context) || saveSheet(context) == SaveOutcome::Saved;
    if (settled && copy) context.ports.files.remove(*copy);
}

}  // namespace quorvel
