#pragma once

#include <string>

#include <windows.h>

#include "core/CodePage.h"
#include "core/ports/Dialogs.h"

namespace quorvel {

/// Asks a question in a box over the middle of `owner`, or of the screen. The answer; empty when
/// cancelled.
std::string showPromptBox(HWND owner, const Prompt& prompt, const CodePage& codePage);

}  // namespace quorvel
