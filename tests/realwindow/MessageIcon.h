#pragma once

#include <windows.h>

#include "core/ports/Dialogs.h"

namespace quorvel::scenario {

/// The icon that a message box shows, told by its pixels. Throws ScenarioError for one that the
/// program has no use for.
Icon iconOf(HWND messageBox);

}  // namespace quorvel::scenario
