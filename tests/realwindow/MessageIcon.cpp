#include "tests/realwindow/MessageIcon.h"

#include <array>
#include <optional>

#include "platform/win32/Handles.h"
#include "tests/realwindow/DialogControls.h"
#include "tests/realwindow/Picture.h"
#include "tests/realwindow/SystemTexts.h"
#include "tests/scenario/Scenario.h"

namespace quorvel::scenario {

namespace {

constexpr int iconSize = 32;
constexpr DWORD paintingTimeout = 3'000;  // milliseconds
constexpr DWORD paintingPause = 10;

/// A stock icon on a ground of the given colour, as a message box shows it.
Picture stockIcon(LPCWSTR name, std::uint32_t ground) {
    const WindowDC screen(nullptr);
    const UniqueDC memory(CreateCompatibleDC(screen.get()));
    const UniqueBitmap bitmap(CreateCompatibleBitmap(screen.get(), iconSize, iconSize));
    const UniqueBrush brush(
        CreateSolidBrush(RGB(ground >> 16 & 0xFF, ground >> 8 & 0xFF, ground & 0xFF)));
    const SelectedObject selected(memory.get(), bitmap.get());
    const RECT area{0, 0, iconSize, iconSize};
    FillRect(memory.get(), &area, brush.get());
    DrawIconEx(memory.get(), 0, 0, LoadIconW(nullptr, name), iconSize, iconSize, 0, nullptr,
               DI_NORMAL);
    return pictureOf(memory.get(), 0, 0, iconSize, iconSize);
}

struct StockIcon {
    LPCWSTR name;
    std::optional<Icon> icon;  // nothing for those that the program has no use for
};

}  // namespace

Icon iconOf(HWND messageBox) {
    HWND control = GetDlgItem(messageBox, dialog_control::messageIcon);
    if (control == nullptr || ask(control, STM_GETICON) == 0) return Icon::None;
    POINT place{};
    MapWindowPoints(control, messageBox, &place, 1);

    const std::array stockIcons{
        StockIcon{IDI_ERROR, Icon::Critical},
        StockIcon{IDI_INFORMATION, Icon::Information},
        StockIcon{IDI_WARNING, std::nullopt},
        StockIcon{IDI_QUESTION, std::nullopt},
    };
    const DWORD start = GetTickCount();
    do {
        const Picture shown = pictureOf(messageBox, place.x, place.y, iconSize, iconSize);
        // The corners of every icon are transparent.
        for (const StockIcon& stock : stockIcons) {
            if (stockIcon(stock.name, shown.at(0, 0)) != shown) continue;
            if (stock.icon) return *stock.icon;
            throw ScenarioError("a message box with another icon");
        }
        Sleep(paintingPause);
    } while (GetTickCount() - start < paintingTimeout);
    throw ScenarioError("a message box with an unknown icon");
}

}  // namespace quorvel::scenario
