#include "tests/speed/window/EmptyWindow.h"

#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <windows.h>

#include "core/ports/Canvas.h"
#include "platform/win32/ControlIds.h"
#include "platform/win32/ControlParts.h"
#include "platform/win32/Handles.h"
#include "window/CanvasPlaces.h"

#include <winspool.h>

namespace quorvel {

namespace {

constexpr int clientWidth = 740;
constexpr int clientHeight = 515;
constexpr int pictureLeft = 150;
constexpr RECT pictureArea{pictureLeft, 0, pictureLeft + Canvas::wideWidth, Canvas::gridHeight};

/// What the window shows and prints.
struct Content {
    UniqueBitmap picture;
    UniqueDC context{::CreateCompatibleDC(nullptr)};  // goes before what is selected in it
    std::vector<std::wstring> lines;  // a line that begins with a form feed begins a page
};

std::vector<std::wstring> linesOf(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    std::vector<std::wstring> lines;
    for (std::string line; std::getline(stream, line);) {
        const int length = static_cast<int>(line.size());
        std::wstring wide(line.size(), L'\0');
        wide.resize(static_cast<std::size_t>(::MultiByteToWideChar(
            CP_UTF8, 0, line.data(), length, wide.data(), static_cast<int>(wide.size()))));
        lines.push_back(std::move(wide));
    }
    return lines;
}

void drawPicture(Content& content) {
    const WindowDC screen(nullptr);
    content.picture.reset(
        ::CreateCompatibleBitmap(screen.get(), Canvas::wideWidth, Canvas::gridHeight));
    ::SelectObject(content.context.get(), content.picture.get());
    for (int row = 0; row < Canvas::gridHeight; ++row)
        ::PatBlt(content.context.get(), 0, row, Canvas::wideWidth, 1,
                 row % 2 == 0 ? WHITENESS : BLACKNESS);
}

std::wstring defaultPrinter() {
    DWORD size = 0;
    ::GetDefaultPrinterW(nullptr, &size);
    std::wstring name(size, L'\0');
    ::GetDefaultPrinterW(name.data(), &size);
    return name;
}

void print(const Content& content) {
    constexpr int pointsPerInch = 72;
    constexpr int fontPoints = 10;
    const UniqueDC printer(::CreateDCW(L"WINSPOOL", defaultPrinter().c_str(), nullptr, nullptr));
    const int height = fontPoints * ::GetDeviceCaps(printer.get(), LOGPIXELSY) / pointsPerInch;
    const UniqueFont font(::CreateFontW(-height, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE,
                                        DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS,
                                        DEFAULT_QUALITY, FIXED_PITCH, L"Courier New"));
    DOCINFOW job{};
    job.cbSize = sizeof job;
    job.lpszDocName = L"Text";
    ::StartDocW(printer.get(), &job);
    ::StartPage(printer.get());
    ::SelectObject(printer.get(), font.get());
    int y = 0;
    for (std::wstring_view line : content.lines) {
        if (line.starts_with(L'\f')) {
            line.remove_prefix(1);
            ::EndPage(printer.get());
            ::StartPage(printer.get());
            ::SelectObject(printer.get(), font.get());
            y = 0;
        }
        ::TextOutW(printer.get(), 0, y, line.data(), static_cast<int>(line.size()));
        y += height;
    }
    ::EndPage(printer.get());
    ::EndDoc(printer.get());
}

void paint(HWND window, const Content& content) {
    PAINTSTRUCT painting{};
    const HDC target = ::BeginPaint(window, &painting);
    ::BitBlt(target, pictureLeft, 0, Canvas::wideWidth, Canvas::gridHeight, content.context.get(),
             0, 0, SRCCOPY);
    ::EndPaint(window, &painting);
}

LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto* const content =
        reinterpret_cast<const Content*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
    switch (message) {
        case WM_PAINT:
            paint(window, *content);
            return 0;
        case WM_KEYDOWN:
            ::InvalidateRect(window, &pictureArea, FALSE);
            ::UpdateWindow(window);
            return 0;
        case printMessage:
            print(*content);
            return 0;
        case WM_DESTROY:
            ::PostQuitMessage(0);
            return 0;
        default:
            return ::DefWindowProcW(window, message, wParam, lParam);
    }
}

void openWindow(Content& content) {
    WNDCLASSW parts{};
    parts.lpfnWndProc = procedure;
    parts.hInstance = ::GetModuleHandleW(nullptr);
    parts.hCursor = ::LoadCursorW(nullptr, IDC_ARROW);
    parts.hbrBackground = ::GetSysColorBrush(COLOR_BTNFACE);
    parts.lpszClassName = control_id::mainWindowClass;
    ::RegisterClassW(&parts);
    RECT place{0, 0, clientWidth, clientHeight};
    ::AdjustWindowRect(&place, mainWindowStyle, FALSE);
    const HWND window = ::CreateWindowExW(0, control_id::mainWindowClass, L"Empty", mainWindowStyle,
                                          0, 0, place.right - place.left, place.bottom - place.top,
                                          nullptr, nullptr, parts.hInstance, nullptr);
    ::SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&content));
    // What takes the marks that tell when all messages were taken.
    createControl(window, {.windowClass = L"EDIT",
                           .style = WS_VISIBLE | ES_READONLY,
                           .id = control_id::txtAV,
                           .place = {0, clientHeight - rowPitch, columnPitch, rowPitch}});
    ::ShowWindow(window, SW_SHOW);
    ::UpdateWindow(window);
}

}  // namespace

void runEmptyWindow(const std::filesystem::path& text) {
    Content content;
    if (!text.empty()) content.lines = linesOf(text);
    drawPicture(content);
    openWindow(content);
    MSG message{};
    while (::GetMessageW(&message, nullptr, 0, 0) > 0) {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
}

}  // namespace quorvel
