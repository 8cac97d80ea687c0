#include "platform/win32/CellEditorBox.h"

#include <utility>

#include <windows.h>

#include "platform/win32/ControlParts.h"
#include "platform/win32/Texts.h"
#include "window/Layout.h"

namespace quorvel {

namespace {

/// A typed figure stands where it is drawn afterwards.
constexpr int rightMargin =
    columnPitch - canvas_places::scoreLeft(0) - canvas_places::scoreSlots * Canvas::glyphWidth;

/// Stands out from both backgrounds of the grid.
constexpr COLORREF entryColour = RGB(0xFF, 0xF4, 0xC2);
constexpr COLORREF entryTextColour = RGB(0, 0, 0);

}  // namespace

CellEditorBox::CellEditorBox(const CodePage& codePage)
    : codePage_(codePage),
      font_(cellFont(rowPitch)),
      background_(::CreateSolidBrush(entryColour)) {}

void CellEditorBox::create(HWND parent, int id, std::size_t longestText) {
    name_ = createControl(parent, {.windowClass = L"STATIC", .style = WS_VISIBLE | SS_NOPREFIX});
    window_ = createControl(parent, {.windowClass = L"EDIT",
                                     .style = ES_AUTOHSCROLL | ES_RIGHT,
                                     .id = id,
                                     .place = {0, 0, columnPitch, rowPitch},
                                     .font = font_.get()});
    ::SendMessageW(window_, EM_SETLIMITTEXT, longestText, 0);
    ::SendMessageW(window_, EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN,
                   MAKELPARAM(0, rightMargin));
}

void CellEditorBox::show(const CellEditor& editor, std::string_view name) {
    if (editor.visible && (!visible_ || editor.openings != openings_)) {
        open(editor, name);
    } else if (!editor.visible && visible_) {
        hide();
    } else if (editor.visible && editor.text != text_) {
        text_ = editor.text;
        setWindowText(window_, text_, codePage_);
    }
}

void CellEditorBox::open(const CellEditor& editor, std::string_view name) {
    visible_ = true;
    openings_ = editor.openings;
    text_ = editor.text;
    ::SetWindowPos(window_, HWND_TOP, editor.left, editor.top, columnPitch, rowPitch,
                   SWP_NOACTIVATE);
    setWindowText(window_, text_, codePage_);
    setWindowText(name_, name, codePage_);
    ::SetWindowPos(name_, HWND_TOP, 0, 0, 0, 0, SWP_NOACTIVATE);
    ::ShowWindow(window_, SW_SHOW);
    ::SetFocus(window_);
    ::SendMessageW(window_, EM_SETSEL, 0, -1);
}

void CellEditorBox::hide() {
    visible_ = false;
    if (::GetFocus() == window_) ::SetFocus(::GetParent(window_));
    ::ShowWindow(window_, SW_HIDE);
}

HBRUSH CellEditorBox::colour(HDC context) const {
    if (isHighContrast()) {
        ::SetBkColor(context, ::GetSysColor(COLOR_WINDOW));
        ::SetTextColor(context, ::GetSysColor(COLOR_WINDOWTEXT));
        return ::GetSysColorBrush(COLOR_WINDOW);
    }
    ::SetBkColor(context, entryColour);
    ::SetTextColor(context, entryTextColour);
    return background_.get();
}

bool CellEditorBox::holdsNewText() {
    std::string text = windowText(window_, codePage_);
    if (text == text_) return false;
    text_ = std::move(text);
    return true;
}

}  // namespace quorvel
