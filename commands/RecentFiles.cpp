#include "commands/RecentFiles.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "core/Paths.h"
#include "storage/Settings.h"

namespace quorvel {

namespace {

using MenuEntries = std::array<MenuEntry, recentFileCount>;

/// The last entry keeps its caption: it is shifted out next.
void removeCaption(MenuEntries& entries, std::string_view caption) {
    bool found = false;
    for (std::size_t index = 0; index + 1 < entries.size(); ++index) {
        found = found || entries[index].caption == caption;
        if (found) entries[index].caption = entries[index + 1].caption;
    }
}

void insertFirst(MenuEntries& entries, std::string_view caption) {
    for (std::size_t index = entries.size() - 1; index > 0; --index) {
        entries[index].caption = entries[index - 1].caption;
    }
    entries.front().caption = caption;
}

}  // namespace

void showRecentFiles(WorkingState& state) {
    for (std::size_t index = 0; index < recentFileCount; ++index) {
        MenuEntry& entry = state.mnuPFile[index];
        // A stored folder without a name in it gives a visible entry without a text.
        entry.visible = !state.recentFiles[index].empty();
        entry.caption = fileNameText(state.recentFiles[index]);
    }
}

void updateRecentFiles(CommandContext& context) {
    WorkingState& state = context.state;
    const std::string path = pathText(state.currentPath, *state.codePage);
    removeCaption(state.mnuPFile, path);
    insertFirst(state.mnuPFile, path);
    for (std::size_t index = 0; index < recentFileCount; ++index) {
        MenuEntry& entry = state.mnuPFile[index];
        entry.visible = !entry.caption.empty();
        state.recentFiles[index] = entry.caption;
    }
    writeRecentFiles(context.ports.files, state);
}

}  // namespace quorvel
