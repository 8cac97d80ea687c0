#include "platform/win32/FormWindow.h"

#include <algorithm>
#include <exception>

#include <windows.h>

#include "core/Errors.h"
#include "platform/win32/ControlIds.h"
#include "platform/win32/ControlParts.h"
#include "platform/win32/MenuBar.h"
#include "platform/win32/Texts.h"
#include "window/Menu.h"

#include <windowsx.h>

namespace quorvel {

namespace {

/// Thick frame for the looks; its edges cannot be dragged.
constexpr DWORD windowStyle =
    WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_MINIMIZEBOX | WS_CLIPCHILDREN;
constexpr int studentsPerWheelNotch = 3;

RECT rectOf(const Rectangle& place) {
    return {place.left, place.top, place.left + place.width, place.top + place.height};
}

HICON loadIcon(int width, int height) {
    return static_cast<HICON>(
        ::LoadImageW(::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(control_id::applicationIcon),
                     IMAGE_ICON, ::GetSystemMetrics(width), ::GetSystemMetrics(height), LR_SHARED));
}

void registerWindowClass(WNDPROC procedure) {
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.lpfnWndProc = procedure;
    windowClass.hInstance = ::GetModuleHandleW(nullptr);
    windowClass.hIcon = loadIcon(SM_CXICON, SM_CYICON);
    windowClass.hIconSm = loadIcon(SM_CXSMICON, SM_CYSMICON);
    windowClass.hCursor = ::LoadCursorW(nullptr, IDC_ARROW);
    windowClass.lpszClassName = control_id::mainWindowClass;
    ::RegisterClassExW(&windowClass);
}

bool isEdge(LRESULT hit) {
    return hit >= HTSIZEFIRST && hit <= HTSIZELAST;
}

}  // namespace

FormWindow::FormWindow(frmQRV& form, WindowsDialogs& dialogs, GdiCanvas& canvas,
                       const CodePage& codePage)
    : form_(form),
      dialogs_(dialogs),
      canvas_(canvas),
      codePage_(codePage),
      controls_(codePage),
      editor_(codePage,
              {.enterKey = [this] { act([this] { form_.txtEnter_KeyDown(frmQRV::enterKey); }); },
               .tabKey = [this] { act([this] { form_.hideEditor(); }); }}),
      accelerators_(createAccelerators()) {
    registerWindowClass(procedure);
    if (::CreateWindowExW(0, control_id::mainWindowClass, L"", windowStyle, CW_USEDEFAULT, 0, 0, 0,
                          nullptr, nullptr, ::GetModuleHandleW(nullptr), this) == nullptr)
        throw Error("The window could not be opened.");
    ::DeleteMenu(::GetSystemMenu(window_, FALSE), SC_SIZE, MF_BYCOMMAND);
    controls_.create(window_);
    editor_.create(window_, control_id::txtEnter, frmQRV::longestEntry);
    showMenuBar();
    dialogs_.setOwner(window_, [this] { present(); });
    present();
}

FormWindow::~FormWindow() {
    dialogs_.setOwner(nullptr, {});
    if (window_ != nullptr) ::DestroyWindow(window_);
}

bool FormWindow::translate(MSG& message) {
    if (message.message == WM_MOUSEWHEEL &&
        (message.hwnd == window_ || ::IsChild(window_, message.hwnd))) {
        turnWheel(GET_WHEEL_DELTA_WPARAM(message.wParam));
        return true;
    }
    return ::TranslateAcceleratorW(window_, accelerators_.get(), &message) != 0;
}

LRESULT CALLBACK FormWindow::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        const auto* const creation = reinterpret_cast<const CREATESTRUCTW*>(lParam);
        auto* const self = static_cast<FormWindow*>(creation->lpCreateParams);
        self->window_ = window;
        ::SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
    }
    auto* const self = reinterpret_cast<FormWindow*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self == nullptr) return ::DefWindowProcW(window, message, wParam, lParam);
    return self->handle(message, wParam, lParam);
}

LRESULT FormWindow::handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_COMMAND:
            handleCommand(wParam, lParam);
            return 0;
        case WM_LBUTTONDOWN:
        case WM_MBUTTONDOWN:
        case WM_RBUTTONDOWN:
            mouseDown(lParam);
            return 0;
        case WM_HSCROLL:
        case WM_VSCROLL:
            scroll(reinterpret_cast<HWND>(lParam), wParam);
            return 0;
        case WM_MOUSEWHEEL:
            turnWheel(GET_WHEEL_DELTA_WPARAM(wParam));
            return 0;
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
        case WM_CLOSE:
            act([this] { form_.closeBox(); });
            return 0;
        case WM_QUERYENDSESSION:
            if (!form_.hasEnded()) actAnyTime([this] { form_.closeBox(); });
            return TRUE;
        case WM_ENDSESSION:
            endSession(wParam != FALSE);
            return 0;
        case WM_DESTROY:
            window_ = nullptr;
            ::PostQuitMessage(0);
            return 0;
        case WM_NCHITTEST: {
            const LRESULT hit = ::DefWindowProcW(window_, message, wParam, lParam);
            return isEdge(hit) ? HTBORDER : hit;
        }
        default:
            return ::DefWindowProcW(window_, message, wParam, lParam);
    }
}

void FormWindow::handleCommand(WPARAM wParam, LPARAM lParam) {
    if (lParam != 0) {
        handleNotification(LOWORD(wParam), HIWORD(wParam));
        return;
    }
    const int item = LOWORD(wParam) - control_id::firstMenuCommand;
    if (item < 0 || item >= static_cast<int>(menuItems().size())) return;
    act([this, item] { form_.chooseMenu(item); });
}

void FormWindow::handleNotification(int control, int code) {
    // The second click of a quick pair counts like the first.
    const bool clicked = code == STN_CLICKED || code == STN_DBLCLK;
    if (control == control_id::lblStudent && clicked) act([this] { form_.lblStudent_Click(); });
    if (control == control_id::lblSN && clicked) act([this] { form_.lblSN_Click(); });
    if (control != control_id::txtEnter) return;
    if (code == EN_CHANGE && editor_.holdsNewText())
        act([this] { form_.txtEnter_Change(editor_.text()); });
    if (code == EN_KILLFOCUS && form_.controls().txtEnter.visible)
        actAnyTime([this] { form_.hideEditor(); });
}

void FormWindow::scroll(HWND bar, WPARAM scrollMessage) {
    const auto member = controls_.barOf(bar);
    if (member == nullptr) return;
    const int position = controls_.positionWanted(bar, scrollMessage);
    act([&] { form_.scroll(member, position); });
}

void FormWindow::turnWheel(int delta) {
    wheelRest_ -= delta * studentsPerWheelNotch;
    const int students = wheelRest_ / WHEEL_DELTA;
    wheelRest_ %= WHEEL_DELTA;
    if (students == 0) return;
    act([&] { form_.scroll(&Controls::vsbS, form_.controls().vsbS.position() + students); });
}

void FormWindow::mouseDown(LPARAM position) {
    act([&] { form_.Form_MouseDown(GET_X_LPARAM(position), GET_Y_LPARAM(position)); });
    if (window_ != nullptr && ::GetFocus() != editor_.window()) ::SetFocus(window_);
}

void FormWindow::endSession(bool ending) {
    // With a dialog still open there is no way back through the loop that waits for it.
    if (ending && form_.hasEnded()) ::ExitProcess(0);
}

void FormWindow::act(const std::function<void()>& event) {
    if (actions_ == 0) actAnyTime(event);
}

void FormWindow::actAnyTime(const std::function<void()>& event) {
    ++actions_;
    try {
        event();
        present();
    } catch (const std::exception& error) {
        dialogs_.message({.text = error.what(), .icon = Icon::Critical});
    }
    --actions_;
    if (actions_ == 0 && form_.hasEnded() && window_ != nullptr) ::DestroyWindow(window_);
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
    editor_.show(controls.txtEnter);
    invalidateCanvas(Surface::Grid, form_.layout().gridCanvas);
    invalidateCanvas(Surface::Bottom, form_.layout().bottomCanvas);
    if (openedAnew) ::ShowWindow(window_, SW_SHOW);
    ::UpdateWindow(window_);
}

/// Hides the window and gives it the places of a window that was opened anew.
void FormWindow::reopen() {
    const bool firstTime = openings_ == 0;
    openings_ = form_.openings();
    ::ShowWindow(window_, SW_HIDE);
    controls_.place(form_.layout());
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
    const UniqueBrush brush(::CreateSolidBrush(windowsColour(windowGrey)));
    ::FillRect(context, &client, brush.get());
    ::RestoreDC(context, saved);
}

}  // namespace quorvel
