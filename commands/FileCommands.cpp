#include "commands/FileCommands.h"

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "commands/RecentFiles.h"
#include "core/Paths.h"
#include "storage/Settings.h"
#include "storage/SheetFile.h"

namespace quorvel {

namespace {

/// Far more than a folder can sensibly hold; it only ends a search that finds nothing free.
constexpr int recoveredNames = 10000;

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

SaveOutcome saveSheet(CommandContext& context) {
    WorkingState& state = context.state;
    const std::filesystem::path pathBefore = state.currentPath;
    const std::string nameBefore = state.sheetFileName;
    if (state.saveMode == SaveMode::SaveAs) state.currentPath.clear();
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
    if (!writeSheet(context.ports.files, state.inProgramFolder(state.currentPath), context.sheet)) {
        state.currentPath = pathBefore;
        state.sheetFileName = nameBefore;
        state.saveMode = SaveMode::SaveAs;
        return SaveOutcome::Failed;
    }
    context.window.setCaption(state.sheetFileName);
    state.saveMode = SaveMode::Save;
    state.isDirty = false;
    runSaveHooks(context);
    return SaveOutcome::Saved;
}

/// A free place in the Grades folder for a sheet that could not be saved where it should go.
std::optional<std::filesystem::path> recoveredFile(CommandContext& context) {
    const std::filesystem::path folder = gradesFolder(context.state);
    for (int number = 1; number <= recoveredNames; ++number) {
        std::string name = "Recovered";
        if (number > 1) name.append(" ").append(std::to_string(number));
        std::filesystem::path file = folder / name.append(".qrv");
        if (!context.ports.files.exists(file)) return file;
    }
    return std::nullopt;
}

/// The last resort before the program goes on without the sheet: nothing can be asked any more.
void recoverSheet(CommandContext& context) {
    context.ports.files.createFolder(gradesFolder(context.state));
    if (const auto file = recoveredFile(context)) {
        writeSheet(context.ports.files, *file, context.sheet);
    }
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

void loadSheet(CommandContext& context) {
    WorkingState& state = context.state;
    if (!mayDiscardSheet(context)) return;
    // Cancelling an ordinary Open leaves no path: the next save asks for one.
    if (!state.openFromRecent) state.currentPath.clear();
    const auto chosen = context.ports.dialogs.openFile("Open Gradesheet", gradesFolder(state));
    if (!chosen || chosen->empty()) return;
    state.currentPath = *chosen;
    state.sheetFileName = currentFileName(state);
    updateRecentFiles(context);
    SheetReading reading = readSheet(context.ports.files, state.inProgramFolder(state.currentPath));
    context.sheet.replaceBy(std::move(reading.sheet));
    context.window.setCaption(state.sheetFileName);
    state.openFromRecent = false;
    state.isDirty = false;
    state.saveMode = SaveMode::Save;
    context.window.resetHeadings();
    context.window.RefreshGrid();
}

}  // namespace

void mnuNew(CommandContext& context) {
    if (!confirm(context, "Are you sure you want to create a new grade sheet?",
                 "Make New Grading Sheet")) {
        return;
    }
    offerToSave(context);
    context.state.isDirty = false;
    reloadForNew = true;
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
    context.window.close();
    context.window.endProgram();
}

void offerToSave(CommandContext& context) {
    if (!context.state.isDirty) return;
    if (!confirm(context, "Do you want to save the grade sheet you are currently working on?",
                 "Save Current Grade Sheet?")) {
        return;
    }
    if (saveSheet(context) == SaveOutcome::Failed) recoverSheet(context);
}

}  // namespace quorvel
