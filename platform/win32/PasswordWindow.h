#pragma once

#include <functional>
#include <string_view>

#include <windows.h>

#include "core/CodePage.h"
#include "core/ports/Dialogs.h"

namespace quorvel {

/// Shows a window with a masked text box and a button "Submit". `opened` is told its handle, so
/// that message boxes can belong to it. False when its close box ended it.
bool showPasswordWindow(HWND owner, std::string_view caption, const CodePage& codePage,
                        const std::function<void(HWND)>& opened, const SubmitPassword& submit);

}  // namespace quorvel
