#pragma once

#include "platform/win32/Handles.h"
#include "window/Controls.h"
#include "window/DialogLayout.h"
#include "window/Layout.h"

namespace quorvel {

/// What a control is made of. Without `font` the control keeps Windows' own.
struct ControlParts {
    const wchar_t* windowClass = L"";
    const wchar_t* text = L"";
    DWORD style = 0;  // beside WS_CHILD
    DWORD extendedStyle = 0;
    int id = 0;
    Rectangle place = {};
    HFONT font = nullptr;
};

/// The main window's style. Without a thick frame neither its edges nor snapping change its size.
inline constexpr DWORD mainWindowStyle =
    WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX | WS_CLIPCHILDREN;

/// Makes a control; its parent destroys it.
HWND createControl(HWND parent, const ControlParts& parts);

/// The same colour in Windows' order of blue, green and red.
COLORREF windowsColour(Colour colour);

/// Whether the user asked for colours of high contrast, which then go before our own.
bool isHighContrast();

void moveControl(HWND control, const Rectangle& place);

/// The font that Windows uses in message boxes.
UniqueFont messageFont();

/// What a dialog has to know of a font to lay itself out.
DialogFont measureFont(HWND window, HFONT font);

/// The distance in pixels from the top of a font's lines to what its letters stand on.
int ascentOf(HWND window, HFONT font);

/// The part of the screen that windows can cover where `window` stands.
RECT workArea(HWND window);

/// The font of the grid's texts: fixed pitch, lines of exactly this height. Without `width` the
/// characters have the width that goes with the height.
UniqueFont cellFont(int lineHeight, int width = 0);

/// Puts a window over the middle of its owner, or of the screen where it has none that can be seen,
/// and inside the screen.
void centreOnOwner(HWND window);

/// While it lives, the cursor says that the program is at work.
class WaitCursor {
  public:
    WaitCursor() : before_(::SetCursor(::LoadCursorW(nullptr, IDC_WAIT))) {}
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
    ~WaitCursor() { ::SetCursor(before_); }

  private:
    HCURSOR before_;
};

/// While it lives, message boxes and common dialogs of this thread appear over the middle of their
/// owners.
class CentredDialogs {
  public:
    CentredDialogs();
    CentredDialogs(const CentredDialogs&) = delete;
    CentredDialogs& operator=(const CentredDialogs&) = delete;
    ~CentredDialogs();

  private:
    HHOOK hook_;
};

}  // namespace quorvel
