#pragma once

#include <span>

#include "core/CodePage.h"
#include "core/MenuEntry.h"
#include "platform/win32/Handles.h"

namespace quorvel {

/// The menu bar, with those of the recent files that are visible.
UniqueMenu createMenuBar(std::span<const MenuEntry> recentFiles, const CodePage& codePage);

/// The keys of all menu entries.
UniqueAcceleratorTable createAccelerators();

}  // namespace quorvel
