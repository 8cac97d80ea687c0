#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

#include "core/CodePage.h"
#include "core/GradingScale.h"
#include "core/MenuEntry.h"
#include "core/Places.h"
#include "core/PrintFont.h"
#include "core/ports/Files.h"

namespace quorvel {

inline constexpr int recentFileCount = 9;

/// Whether the next save asks for a place.
enum class SaveMode { Save, SaveAs };

/// What a save does when it is done. No command sets Unload; the hook is kept.
enum class AfterSaveAction { None, Unload };

/// A file and what it was when this run last loaded or saved it.
struct KnownFile {
    std::filesystem::path file;
    std::optional<FileStamp> stamp;  // nothing where that could not be found out
};

/// What the program keeps beside the sheet while it runs.
struct WorkingState {
    Places places;
    /// The file that the sheet was last loaded from or saved to; empty when there is none. A
    /// relative path counts from the program's folder.
    std::filesystem::path currentPath;
    /// `currentPath` without its folder, in the code page.
    std::string sheetFileName;
    KnownFile knownFile;
    SaveMode saveMode = SaveMode::SaveAs;
    AfterSaveAction afterSaveAction = AfterSaveAction::None;
    bool exitAfterSave = false;
    bool isDirty = false;
    bool openFromRecent = false;
    /// Set by New just before the main window is reloaded: the password is then not asked for, and
    /// closing the window does not end the program. Start-up of the main window clears it.
    bool reloadForNew = false;

    /// The recent files as stored, most recent first.
    std::array<std::string, recentFileCount> recentFiles;
    /// The menu entries mnuPFile(1) to mnuPFile(9), which the list is kept in while the program
    /// runs.
    std::array<MenuEntry, recentFileCount> mnuPFile;

    std::string schoolName;
    std::string teacherName;
    GradingScale gradingScale;
    PrintFont printFont;

    std::int16_t currentAssignment = 0;
    std::int16_t currentStudent = 0;

    /// The report last chosen (1 to 6) and its further answer: "Name", "Alias" or a number as text.
    /// Kept on purpose, though nothing reads them.
    std::int16_t reportKind = 0;
    std::string reportOption;

    const CodePage* codePage = &CodePage::windows1252();

    /// Where a file of the program's own folder is, or the file itself where `path` is absolute.
    std::filesystem::path inProgramFolder(const std::filesystem::path& path) const {
        return places.programFolder / path;
    }
};

}  // namespace quorvel
