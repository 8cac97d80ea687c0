#include "platform/win32/ModalDialog.h"

#include <exception>

#include "core/Errors.h"
#include "platform/win32/ControlIds.h"
#include "platform/win32/ControlParts.h"

namespace quorvel {

namespace {

/// A dialog without controls, as it lies in memory: head, then no menu, the usual class, no title.
struct EmptyTemplate {
    alignas(DWORD) DLGTEMPLATE head;
    WORD menu;
    WORD windowClass;
    WORD title;
};

struct Running {
    const ModalDialog& dialog;
    std::exception_ptr failure;
};

void giveIcon(HWND window) {
    const HINSTANCE instance = ::GetModuleHandleW(nullptr);
    const auto load = [&](int width, int height) {
        return reinterpret_cast<LPARAM>(
            ::LoadImageW(instance, MAKEINTRESOURCEW(control_id::applicationIcon), IMAGE_ICON,
                         ::GetSystemMetrics(width), ::GetSystemMetrics(height), LR_SHARED));
    };
    ::SendMessageW(window, WM_SETICON, ICON_BIG, load(SM_CXICON, SM_CYICON));
    ::SendMessageW(window, WM_SETICON, ICON_SMALL, load(SM_CXSMICON, SM_CYSMICON));
}

INT_PTR handle(Running& running, HWND window, UINT message, WPARAM wParam) {
    switch (message) {
        case WM_INITDIALOG:
            running.dialog.create(window);
            centreOnOwner(window);
            if (::GetWindow(window, GW_OWNER) == nullptr) {
                // The program's first window: nothing of it has been in front yet.
                giveIcon(window);
                ::ShowWindow(window, SW_SHOW);
                ::SetForegroundWindow(window);
            }
            return TRUE;  // the focus goes to the first control that takes it
        case WM_CLOSE:
            // The close box. Escape, which Windows takes for it, comes as a choice.
            ::EndDialog(window, IDOK);
            return TRUE;
        case WM_COMMAND:
            // Controls that only report a change are no choice.
            if (HIWORD(wParam) != BN_CLICKED) return FALSE;
            if (running.dialog.choose(window, LOWORD(wParam))) ::EndDialog(window, IDOK);
            return TRUE;
        default:
            return FALSE;
    }
}

/// The whole dialog around such a client area.
RECT withFrame(HWND dialog, RECT client) {
    ::AdjustWindowRectEx(&client, static_cast<DWORD>(::GetWindowLongW(dialog, GWL_STYLE)), FALSE,
                         static_cast<DWORD>(::GetWindowLongW(dialog, GWL_EXSTYLE)));
    return client;
}

INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) ::SetWindowLongPtrW(window, DWLP_USER, lParam);
    auto* const running = reinterpret_cast<Running*>(::GetWindowLongPtrW(window, DWLP_USER));
    if (running == nullptr) return FALSE;
    try {
        return handle(*running, window, message, wParam);
    } catch (...) {
        // Windows' own frames lie between here and runModalDialog: nothing may pass through them.
        running->failure = std::current_exception();
        ::EndDialog(window, IDCANCEL);
        return TRUE;
    }
}

}  // namespace

void runModalDialog(HWND owner, const ModalDialog& dialog) {
    EmptyTemplate empty{};
    empty.head.style = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME | DS_NOFAILCREATE;
    empty.head.dwExtendedStyle = owner == nullptr ? WS_EX_APPWINDOW : 0;
    Running running{dialog, nullptr};
    const INT_PTR result =
        ::DialogBoxIndirectParamW(::GetModuleHandleW(nullptr), &empty.head, owner, procedure,
                                  reinterpret_cast<LPARAM>(&running));
    if (running.failure) std::rethrow_exception(running.failure);
    if (result <= 0) throw Error("A window could not be opened.");
}

ScreenSize largestClientSize(HWND dialog) {
    const RECT area = workArea(::GetWindow(dialog, GW_OWNER));
    const RECT frame = withFrame(dialog, {});
    return {static_cast<int>(area.right - area.left - (frame.right - frame.left)),
            static_cast<int>(area.bottom - area.top - (frame.bottom - frame.top))};
}

void setClientSize(HWND dialog, int width, int height) {
    const RECT frame = withFrame(dialog, {0, 0, width, height});
    ::SetWindowPos(dialog, nullptr, 0, 0, frame.right - frame.left, frame.bottom - frame.top,
                   SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace quorvel
