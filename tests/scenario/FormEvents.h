#pragma once

#include <functional>
#include <string_view>

#include "window/frmQRV.h"

namespace quorvel::scenario {

/// What a user does to the window, as the system then tells its controls.
using FormEvent = std::function<void(frmQRV&)>;

// Each says what becomes of it as the window stands now; ScenarioError where it cannot be done.

/// A mouse button goes down at a place of the client area.
FormEvent clickAt(const frmQRV& form, double x, double y);
/// In the middle of a control.
FormEvent clickOn(const frmQRV& form, std::string_view control);
/// Text typed or pasted into the editor, over what is selected there; it takes no more than fits.
FormEvent textTyped(const frmQRV& form, std::string_view text);
/// "Enter", "Escape", "Tab" or one character; nothing happens where no editor has the focus.
FormEvent keyPressed(const frmQRV& form, std::string_view key);
/// A scroll bar is moved to a position.
FormEvent barMoved(std::string_view bar, int position);
/// Windows asks whether the session may end, and ends it.
FormEvent sessionEnding();

}  // namespace quorvel::scenario
