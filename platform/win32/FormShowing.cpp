#include <algorithm>
#include <optional>

#include <windows.h>

#include "platform/win32/ControlParts.h"
#include "platform/win32/FormWindow.h"
#include "platform/win32/MenuBar.h"
#include "platform/win32/Texts.h"

namespace quorvel {

namespace {

RECT rectOf(const Rectangle& place) {
    return {place.left, place.top, place.left + place.width, place.top + place.height};
}

}  // namespace

LRESULT FormWindow::handleShowing(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_PAINT:
            paint();
            return 0;
        case WM_ERASEBKGND:
            eraseBackground(reinterpret_cast<HDC>(wParam));
            return 1;
        case WM_CTLCOLORSTATIC:
            return reinterpret_cast<LRESULT>(
                controls_.colour(reinterpret_cast<HDC>(wParam), reinterpret_cast<HWND>(lParam)));
        case WM_CTLCOLOREDIT:
            return reinterpret_cast<LRESULT>(editor_.colour(reinterpret_cast<HDC>(wParam)));
        case WM_SYSCOLORCHANGE:
        case WM_THEMECHANGED:
        case WM_SETTINGCHANGE:
            followSystemColours(message, wParam, lParam);
            return 0;
        default:
            return ::DefWindowProcW(window_, message, wParam, lParam);
    }
}

void FormWindow::present() {
    if (!form_.isOpen()) return;
    const bool openedAnew = form_.openings() != openings_;
    if (openedAnew) reopen();
    const Controls& controls = form_.controls();
    if (controls.caption != shownCaption_) {
        shownCaption_ = controls.caption;
        setWindowText(window_, shownCaption_, codePage_);
    }
    if (form_.state().mnuPFile != shownRecentFiles_) showMenuBar();
    controls_.show(controls);
    bars_.show(controls);
    editor_.show(controls.txtEnter, editorName(form_));
    invalidateCanvas(Surface::Grid, form_.layout().gridCanvas);
    invalidateCanvas(Surface::Bottom, form_.layout().bottomCanvas);
    if (openedAnew) ::ShowWindow(window_, SW_SHOW);
    ::UpdateWindow(window_);
}

/// Gives the window the places of one that was opened anew. It stays where it is, and in front.
void FormWindow::reopen() {
    const bool firstTime = openings_ == 0;
    openings_ = form_.openings();
    controls_.place(form_.layout(), canvas_.rowBands());
    bars_.place(form_.layout());
    fitToLayout();
    if (firstTime) centreOnOwner(window_);
    ::InvalidateRect(window_, nullptr, TRUE);
}

void FormWindow::fitToLayout() {
    const Layout& layout = form_.layout();
    const LONG widest = ::GetSystemMetrics(SM_CXSCREEN);
    const LONG highest = ::GetSystemMetrics(SM_CYSCREEN);
    const auto resize = [this](LONG width, LONG height) {
        ::SetWindowPos(window_, nullptr, 0, 0, width, height,
                       SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    };
    resize(std::min<LONG>(layout.windowWidth, widest),
           std::min<LONG>(layout.windowHeight, highest));
    RECT window{};
    RECT client{};
    ::GetWindowRect(window_, &window);
    ::GetClientRect(window_, &client);
    // A theme's frame can leave less than what has to be shown.
    const LONG missingWidth = std::max<LONG>(0, layout.clientWidth - client.right);
    const LONG missingHeight = std::max<LONG>(0, layout.clientHeight - client.bottom);
    resize(std::min(window.right - window.left + missingWidth, widest),
           std::min(window.bottom - window.top + missingHeight, highest));
}

void FormWindow::showMenuBar() {
    shownRecentFiles_ = form_.state().mnuPFile;
    const UniqueMenu before(::GetMenu(window_));
    ::SetMenu(window_, createMenuBar(shownRecentFiles_, codePage_).release());
}

void FormWindow::invalidateCanvas(Surface surface, const Rectangle& place) {
    const std::optional<RECT> changed = canvas_.takeChanged(surface);
    if (!changed) return;
    RECT area = *changed;
    ::OffsetRect(&area, place.left, place.top);
    const RECT shown = rectOf(place);
    if (::IntersectRect(&area, &area, &shown) != 0) ::InvalidateRect(window_, &area, FALSE);
    // A screen reader then asks anew.
    ::NotifyWinEvent(EVENT_OBJECT_REORDER, window_, OBJID_CLIENT, CHILDID_SELF);
}

void FormWindow::paint() {
    PAINTSTRUCT painting{};
    const HDC context = ::BeginPaint(window_, &painting);
    const auto paintCanvas = [&](Surface surface, const Rectangle& place) {
        const RECT shown = rectOf(place);
        RECT area{};
        if (::IntersectRect(&area, &painting.rcPaint, &shown) == 0) return;
        ::OffsetRect(&area, -place.left, -place.top);
        canvas_.paint(surface, context, place.left, place.top, area);
    };
    paintCanvas(Surface::Grid, form_.layout().gridCanvas);
    paintCanvas(Surface::Bottom, form_.layout().bottomCanvas);
    ::EndPaint(window_, &painting);
}

void FormWindow::eraseBackground(HDC context) const {
    RECT client{};
    ::GetClientRect(window_, &client);
    const int saved = ::SaveDC(context);
    for (const Rectangle& place : {form_.layout().gridCanvas, form_.layout().bottomCanvas})
        ::ExcludeClipRect(context, place.left, place.top, place.left + place.width,
                          place.top + place.height);
    ::FillRect(context, &client, ::GetSysColorBrush(COLOR_BTNFACE));
    ::RestoreDC(context, saved);
}

void FormWindow::followSystemColours(UINT message, WPARAM wParam, LPARAM lParam) {
    // Controls hear of new colours through their parent only.
    for (HWND child = ::GetWindow(window_, GW_CHILD); child != nullptr;
         child = ::GetWindow(child, GW_HWNDNEXT))
        ::SendMessageW(child, message, wParam, lParam);
    ::RedrawWindow(window_, nullptr, nullptr,
                   RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
}

}  // namespace quorvel
