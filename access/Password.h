#pragma once

#include "core/CommandContext.h"

namespace quorvel {

/// Where the password is kept on Windows, whatever folder the program is in.
inline constexpr const char* windowsPasswordFile = "C:\\Windows\\khymltp.wpt";

/// The start-up password window. True when the main window may open: at once where no password is
/// set or the main window is only being reloaded, else after the right entry. False ends the
/// program.
bool frmPW(CommandContext& context);

/// Changes the password in the window frmPWEdit. The third wrong old password ends the program.
void mnuEditPassword(CommandContext& context);

}  // namespace quorvel
