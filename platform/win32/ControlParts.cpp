#include "platform/win32/ControlParts.h"

#include <algorithm>

namespace quorvel {

namespace {

/// Marks a dialog that has been centred: from then on it stays where the user moves it.
constexpr const wchar_t* centredMark = L"Quorvel.centred";

/// Where a length stands in the middle of `outer`, inside `limits`; at their start where it is
/// longer than they are.
LONG centred(LONG length, LONG outerStart, LONG outerEnd, LONG limitStart, LONG limitEnd) {
    const LONG start = (outerStart + outerEnd - length) / 2;
    return std::max(limitStart, std::min(start, limitEnd - length));
}

LRESULT CALLBACK centreActivated(int code, WPARAM wParam, LPARAM lParam) {
    const auto window = reinterpret_cast<HWND>(wParam);
    if (code == HCBT_ACTIVATE && ::GetWindow(window, GW_OWNER) != nullptr &&
        ::GetPropW(window, centredMark) == nullptr) {
        ::SetPropW(window, centredMark, window);
        centreOnOwner(window);
    }
    return ::CallNextHookEx(nullptr, code, wParam, lParam);
}

TEXTMETRICW metricsOf(HWND window, HFONT font) {
    const WindowDC context(window);
    const SelectedObject selection(context.get(), font);
    TEXTMETRICW metrics{};
    ::GetTextMetricsW(context.get(), &metrics);
    return metrics;
}

}  // namespace

HWND createControl(HWND parent, const ControlParts& parts) {
    HWND control = ::CreateWindowExW(parts.extendedStyle, parts.windowClass, parts.text,
                                     parts.style | WS_CHILD, parts.place.left, parts.place.top,
                                     parts.place.width, parts.place.height, parent,
                                     reinterpret_cast<HMENU>(static_cast<INT_PTR>(parts.id)),
                                     ::GetModuleHandleW(nullptr), nullptr);
    if (parts.font != nullptr)
        ::SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(parts.font), FALSE);
    return control;
}

COLORREF windowsColour(Colour colour) {
    return RGB((colour >> 16) & 0xFF, (colour >> 8) & 0xFF, colour & 0xFF);
}

bool isHighContrast() {
    HIGHCONTRASTW setting{};
    setting.cbSize = sizeof setting;
    return ::SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof setting, &setting, 0) != 0 &&
           (setting.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

void moveControl(HWND control, const Rectangle& place) {
    ::SetWindowPos(control, nullptr, place.left, place.top, place.width, place.height,
                   SWP_NOZORDER | SWP_NOACTIVATE);
}

UniqueFont messageFont() {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    ::SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    return UniqueFont(::CreateFontIndirectW(&metrics.lfMessageFont));
}

DialogFont measureFont(HWND window, HFONT font) {
    const TEXTMETRICW metrics = metricsOf(window, font);
    return {static_cast<int>(metrics.tmAveCharWidth), static_cast<int>(metrics.tmHeight)};
}

int ascentOf(HWND window, HFONT font) {
    return static_cast<int>(metricsOf(window, font).tmAscent);
}

RECT workArea(HWND window) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    ::GetMonitorInfoW(::MonitorFromWindow(window, MONITOR_DEFAULTTOPRIMARY), &monitor);
    return monitor.rcWork;
}

UniqueFont cellFont(int lineHeight, int width) {
    return UniqueFont(::CreateFontW(lineHeight, width, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE,
                                    DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS,
                                    DEFAULT_QUALITY, FIXED_PITCH | FF_MODERN, L"Courier New"));
}

void centreOnOwner(HWND window) {
    const HWND owner = ::GetWindow(window, GW_OWNER);
    const bool ownerIsSeen = owner != nullptr && ::IsWindowVisible(owner) && !::IsIconic(owner);
    const RECT limits = workArea(ownerIsSeen ? owner : window);
    RECT outer = limits;
    if (ownerIsSeen) ::GetWindowRect(owner, &outer);
    RECT size{};
    ::GetWindowRect(window, &size);
    const LONG left =
        centred(size.right - size.left, outer.left, outer.right, limits.left, limits.right);
    const LONG top =
        centred(size.bottom - size.top, outer.top, outer.bottom, limits.top, limits.bottom);
    ::SetWindowPos(window, nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

CentredDialogs::CentredDialogs()
    : hook_(::SetWindowsHookExW(WH_CBT, centreActivated, nullptr, ::GetCurrentThreadId())) {}

CentredDialogs::~CentredDialogs() {
    ::UnhookWindowsHookEx(hook_);
}

}  // namespace quorvel
