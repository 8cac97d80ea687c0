#include "platform/win32/FormWindow.h"

#include <exception>

#include <windows.h>

#include "core/Errors.h"
#include "platform/win32/ControlIds.h"
#include "platform/win32/ControlParts.h"
#include "platform/win32/MenuBar.h"
#include "window/Menu.h"
#include "window/Scrolling.h"

#include <windowsx.h>

namespace quorvel {

namespace {

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

bool isMouseDown(UINT message) {
    return message == WM_LBUTTONDOWN || message == WM_MBUTTONDOWN || message == WM_RBUTTONDOWN ||
           message == WM_XBUTTONDOWN;
}

/// Characters that an edit control answers with a beep.
bool isSoundedCharacter(WPARAM character) {
    return character == L'\r' || character == L'\n' || character == L'\t' || character == VK_ESCAPE;
}

bool isWheel(UINT message) {
    return message == WM_MOUSEWHEEL || message == WM_MOUSEHWHEEL;
}

WheelSetting wheelSetting(bool sideways) {
    UINT lines = 0;
    ::SystemParametersInfoW(sideways ? SPI_GETWHEELSCROLLCHARS : SPI_GETWHEELSCROLLLINES, 0, &lines,
                            0);
    if (lines == WHEEL_PAGESCROLL) return {.lines = 0, .wholePages = true};
    return {.lines = static_cast<int>(lines)};
}

/// Tells the user, while it lives, why Windows waits with the end of the session.
class ShutdownBlock {
  public:
    explicit ShutdownBlock(HWND window) : window_(window) {
        ::ShutdownBlockReasonCreate(window_, L"The grade sheet has not been saved.");
    }
    ShutdownBlock(const ShutdownBlock&) = delete;
    ShutdownBlock& operator=(const ShutdownBlock&) = delete;
    ~ShutdownBlock() { ::ShutdownBlockReasonDestroy(window_); }

  private:
    HWND window_;
};

}  // namespace

FormWindow::FormWindow(frmQRV& form, WindowsDialogs& dialogs, GdiCanvas& canvas,
                       const CodePage& codePage)
    : form_(form),
      dialogs_(dialogs),
      canvas_(canvas),
      codePage_(codePage),
      controls_(codePage),
      editor_(codePage),
      accelerators_(createAccelerators()) {
    registerWindowClass(procedure);
    if (::CreateWindowExW(0, control_id::mainWindowClass, L"", mainWindowStyle, CW_USEDEFAULT, 0, 0,
                          0, nullptr, nullptr, ::GetModuleHandleW(nullptr), this) == nullptr)
        throw Error("The window could not be opened.");
    controls_.create(window_);
    bars_.create(window_);
    editor_.create(window_, control_id::txtEnter, frmQRV::longestEntry);
    accessible_.reset(new GridAccessible(window_, form_, codePage_));
    showMenuBar();
    dialogs_.setOwner(window_, [this] { present(); });
    present();
}

FormWindow::~FormWindow() {
    dialogs_.setOwner(nullptr, {});
    accessible_->disconnect();
    if (window_ != nullptr) ::DestroyWindow(window_);
}

bool FormWindow::translate(MSG& message) {
    const bool isChild = ::IsChild(window_, message.hwnd) != 0;
    // Whatever a click does to a control, it ends an entry first; the window itself sees to that.
    if (isMouseDown(message.message) && isChild && message.hwnd != editor_.window())
        act([this] { form_.hideEditor(); });
    if (isWheel(message.message) && isChild) {
        turnWheel(message.message, message.wParam, message.lParam);
        return true;
    }
    return takesKey(message) ||
           ::TranslateAcceleratorW(window_, accelerators_.get(), &message) != 0;
}

bool FormWindow::takesKey(const MSG& message) {
    if (message.message == WM_CHAR) return isSoundedCharacter(message.wParam);
    if (message.message != WM_KEYDOWN) return false;
    const int keyCode = static_cast<int>(message.wParam);
    const bool controlHeld = ::GetKeyState(VK_CONTROL) < 0;
    bool taken = false;
    act([&] {
        taken = form_.controls().txtEnter.visible ? form_.txtEnter_KeyDown(keyCode, controlHeld)
                                                  : form_.Form_KeyDown(keyCode, controlHeld);
    });
    return taken;
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
        case WM_XBUTTONDOWN:
            mouseDown(lParam);
            return message == WM_XBUTTONDOWN ? TRUE : 0;
        case WM_HSCROLL:
        case WM_VSCROLL:
            scroll(reinterpret_cast<HWND>(lParam), wParam);
            return 0;
        case WM_MOUSEWHEEL:
        case WM_MOUSEHWHEEL:
            turnWheel(message, wParam, lParam);
            return 0;
        case WM_CLOSE:
            act([this] { form_.closeBox(); });
            return 0;
        case WM_QUERYENDSESSION:
            querySessionEnd(lParam);
            return TRUE;
        case WM_ENDSESSION:
            endSession(wParam != FALSE);
            return 0;
        case WM_GETOBJECT:
            if (static_cast<LONG>(lParam) == OBJID_CLIENT && accessible_)
                return ::LresultFromObject(IID_IAccessible, wParam, accessible_.get());
            return ::DefWindowProcW(window_, message, wParam, lParam);
        case WM_DESTROY:
            window_ = nullptr;
            ::PostQuitMessage(0);
            return 0;
        default:
            return handleShowing(message, wParam, lParam);
    }
}

void FormWindow::handleCommand(WPARAM wParam, LPARAM lParam) {
    if (lParam != 0) {
        handleNotification(LOWORD(wParam), HIWORD(wParam));
        return;
    }
    const int item = LOWORD(wParam) - control_id::firstMenuCommand;
    if (item < 0 || item >= static_cast<int>(menuItems().size())) return;
    act([this, item] {
        const WaitCursor wait;
        form_.chooseMenu(item);
    });
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
    const auto member = bars_.barOf(bar);
    if (member == nullptr) return;
    const int position =
        positionWanted(form_.controls().*member, pageOf(member, form_.layout()), scrollMessage);
    act([&] { form_.scroll(member, position); });
}

void FormWindow::turnWheel(UINT message, WPARAM wParam, LPARAM lParam) {
    POINT place{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    ::ScreenToClient(window_, &place);
    const bool horizontal = message == WM_MOUSEHWHEEL;
    const bool sideways = horizontal || (GET_KEYSTATE_WPARAM(wParam) & MK_SHIFT) != 0;
    // An upright wheel counts turns away from the user, which go back.
    const int turn = GET_WHEEL_DELTA_WPARAM(wParam) * (horizontal ? 1 : -1);
    act([&] { form_.Form_MouseWheel(place.y, sideways, wheelSetting(horizontal), turn); });
}

void FormWindow::mouseDown(LPARAM position) {
    act([&] { form_.Form_MouseDown(GET_X_LPARAM(position), GET_Y_LPARAM(position)); });
    if (window_ != nullptr && ::GetFocus() != editor_.window()) ::SetFocus(window_);
}

void FormWindow::querySessionEnd(LPARAM reason) {
    // When time has run out nothing can be asked any more; what can be done is done at the end.
    if (form_.hasEnded() || (reason & ENDSESSION_CRITICAL) != 0) return;
    const ShutdownBlock block(window_);
    actAnyTime([this] { form_.sessionMayEnd(); });
}

void FormWindow::endSession(bool ending) {
    if (form_.hasEnded()) return;
    if (!ending) return form_.sessionGoesOn();
    const bool dialogIsOpen = actions_ > 0;
    actAnyTime([this] { form_.sessionEnds(); });
    // With a dialog still open there is no way back through the loop that waits for it.
    if (dialogIsOpen) ::ExitProcess(0);
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

}  // namespace quorvel
