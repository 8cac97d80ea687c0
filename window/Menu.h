#pragma once

#include <span>
#include <string_view>

#include "core/CommandContext.h"

namespace quorvel {

/// The keys that choose a menu entry directly. None means no key.
struct Accelerator {
    bool control = false;
    char key = 0;  // upper-case letter; functionKey counts instead where it is not 0
    int functionKey = 0;
};

/// One entry of the menu bar, in the order of the menus.
struct MenuItem {
    std::string_view menu = {};  // the menu's caption, such as "&File"
    std::string_view name = {};  // such as "mnuNew"; empty for a separator
    std::string_view caption =
        {};  // with its mnemonic: "&New"; recent files have none of their own
    Accelerator accelerator = {};
    void (*command)(CommandContext&) = nullptr;
    int recentFile = 0;  // the number of a recent-file entry, from 1; else 0
};

/// Every entry of every menu.
std::span<const MenuItem> menuItems();

/// The place of the named entry in menuItems(), such as "mnuPFile(1)"; -1 when there is none.
int menuItemIndex(std::string_view name);

}  // namespace quorvel
