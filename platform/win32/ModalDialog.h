#pragma once

#include <functional>

#include <windows.h>

#include "core/ports/Shell.h"

namespace quorvel {

/// What a modal dialog of our own does. An exception from either function closes it.
struct ModalDialog {
    /// Makes the controls of the empty dialog and sizes it. The first one that can takes the focus.
    std::function<void(HWND dialog)> create;
    /// A control was chosen, IDCANCEL for Escape. True closes the dialog; its close box does
    /// without asking.
    std::function<bool(HWND dialog, int id)> choose;
};

/// Shows the dialog over the middle of `owner` (none: of the screen, with a place of its own in the
/// task bar) and returns when it is closed. Throws what its functions threw.
void runModalDialog(HWND owner, const ModalDialog& dialog);

/// The largest client area with which the dialog is wholly on its owner's screen.
ScreenSize largestClientSize(HWND dialog);
/// Gives the dialog's client area this size, and the window what its frame adds.
void setClientSize(HWND dialog, int width, int height);

}  // namespace quorvel
