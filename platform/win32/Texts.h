#pragma once

#include <string>
#include <string_view>

#include <windows.h>

#include "core/CodePage.h"

namespace quorvel {

/// Text on its way to Windows and back. Characters that the code page lacks come back as "?".
std::wstring toWide(std::string_view text, const CodePage& codePage);
std::string fromWide(std::wstring_view text, const CodePage& codePage);

/// The text of a window or control.
std::string windowText(HWND window, const CodePage& codePage);
void setWindowText(HWND window, std::string_view text, const CodePage& codePage);

/// What Windows says about an error number, without a line break; empty when it says nothing.
std::string systemErrorText(DWORD error, const CodePage& codePage);

/// The system's code page, or that of its language where the system's is UTF-8; the Western one
/// where that has more than one byte a character.
CodePage systemCodePage();

}  // namespace quorvel
