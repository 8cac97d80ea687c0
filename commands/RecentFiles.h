#pragma once

#include "core/CommandContext.h"

namespace quorvel {

/// Shows the stored recent files in the menu, as bare names.
void showRecentFiles(WorkingState& state);

/// Makes the current path the first of the recent files and writes their file. A path that stands
/// in the menu in exactly these characters moves up; the last entry drops out for a new one.
void updateRecentFiles(CommandContext& context);

}  // namespace quorvel
