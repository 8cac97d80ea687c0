#pragma once

#include "core/CommandContext.h"

namespace quorvel {

/// Reads the recent files from their file and shows them in the menu, as bare names.
void readRecentFiles(CommandContext& context);

/// Makes the current path the first of the recent files and writes their file. A path that stands
/// in the menu in exactly these characters moves up; the last entry drops out for a new one.
void updateRecentFiles(CommandContext& context);

}  // namespace quorvel
