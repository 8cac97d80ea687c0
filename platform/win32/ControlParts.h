#pragma once

#include "platform/win32/Handles.h"
#include "window/Controls.h"
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

/// Makes a control; its parent destroys it.
HWND createControl(HWND parent, const ControlParts& parts);

/// The same colour in Windows' order of blue, green and red.
COLORREF windowsColour(Colour colour);

void moveControl(HWND control, const Rectangle& place);

/// The font that Windows uses in message boxes.
UniqueFont messageFont();

/// The font of the grid's texts: fixed pitch, lines of exactly this height. Without `width` the
/// characters have the width that goes with the height.
UniqueFont cellFont(int lineHeight, int width = 0);

/// Puts a window over the middle of its owner, or of the screen where it has none that can be seen,
/// and inside the screen.
void centreOnOwner(HWND window);

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
