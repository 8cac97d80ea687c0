#pragma once

#include <windows.h>

/// The controls of the system's own dialogs.
namespace quorvel::scenario::dialog_control {

// The message box.
inline constexpr int messageText = 0xFFFF;
inline constexpr int messageIcon = 0x440;

// The file dialogs.
inline constexpr int fileName = 0x480;

// The font dialog.
inline constexpr int fontFace = 0x470;
inline constexpr int fontSize = 0x472;

}  // namespace quorvel::scenario::dialog_control
