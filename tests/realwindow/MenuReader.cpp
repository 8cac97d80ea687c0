#include "tests/realwindow/MenuReader.h"

#include <algorithm>
#include <map>

#include "tests/realwindow/Picture.h"
#include "tests/realwindow/SystemTexts.h"
#include "tests/realwindow/TextReader.h"
#include "tests/scenario/Scenario.h"
#include "window/Menu.h"

namespace quorvel::scenario {

namespace {

constexpr const wchar_t* popupClass = L"#32768";
constexpr WPARAM fileMenuKey = 'f';
constexpr DWORD menuTimeout = 5'000;  // milliseconds
constexpr DWORD menuPause = 15;
/// Pixels of the menu's frame.
constexpr int frame = 3;
/// Rows without ink within a line of text, such as the one under the dot of an "i".
constexpr int widestGap = 2;
/// A line of ink this low and nearly as wide as the menu is a rule.
constexpr int ruleHeight = 2;

HWND openPopup(const RunningProgram& program) {
    for (HWND window : program.visibleWindows())
        if (classNameOf(window) == popupClass) return window;
    return nullptr;
}

template <typename Condition>
void waitUntil(const char* what, Condition condition) {
    const DWORD start = GetTickCount();
    while (!condition()) {
        if (GetTickCount() - start > menuTimeout)
            throw ScenarioError(std::string("the File menu ") + what);
        Sleep(menuPause);
    }
}

/// Opened by its key, closed again at the end.
class OpenedMenu {
  public:
    explicit OpenedMenu(const RunningProgram& program)
        : program_(program), window_(program.mainWindow()) {
        PostMessageW(window_, WM_SYSCOMMAND, SC_KEYMENU, fileMenuKey);
        waitUntil("does not open", [this] { return openPopup(program_) != nullptr; });
    }
    ~OpenedMenu() {
        SendMessageTimeoutW(window_, WM_CANCELMODE, 0, 0, SMTO_NORMAL, menuTimeout, nullptr);
        const DWORD start = GetTickCount();
        while (openPopup(program_) != nullptr && GetTickCount() - start < menuTimeout)
            Sleep(menuPause);
    }
    OpenedMenu(const OpenedMenu&) = delete;
    OpenedMenu& operator=(const OpenedMenu&) = delete;

    /// What is inside its frame, once it no longer changes.
    Picture settledPicture() const {
        std::optional<Picture> before;
        std::optional<Picture> shown;
        waitUntil("does not stand still", [&] {
            before = std::move(shown);
            shown = picture();
            return before == shown;
        });
        return std::move(*shown);
    }

  private:
    Picture picture() const {
        RECT area{};
        GetWindowRect(openPopup(program_), &area);
        const WindowDC screen(nullptr);
        return pictureOf(screen.get(), area.left + frame, area.top + frame,
                         area.right - area.left - 2 * frame, area.bottom - area.top - 2 * frame);
    }

    const RunningProgram& program_;
    HWND window_;
};

/// What is not the ground of its row. Each row has its own: the chosen entry's is another.
Ink inkOf(const Picture& menu) {
    Ink ink;
    for (int y = 0; y < menu.height(); ++y) {
        const std::uint32_t ground = menu.at(0, y);
        for (int x = 0; x < menu.width(); ++x)
            if (menu.at(x, y) != ground) ink.emplace(x, y);
    }
    return ink;
}

bool isRule(const Ink& line, int top, int bottom, int menuWidth) {
    const int width = line.rbegin()->first - line.begin()->first + 1;
    return bottom - top < ruleHeight && width > menuWidth * 3 / 4;
}

/// The ink of each line of text, from top to bottom.
std::vector<Ink> linesOf(const Picture& menu) {
    std::map<int, Ink> rows;
    for (const Pixel& pixel : inkOf(menu)) rows[pixel.second].insert(pixel);
    std::vector<Ink> lines;
    int top = 0;
    int bottom = -1 - widestGap;
    for (auto& [y, row] : rows) {
        const bool below = y - bottom > widestGap + 1 || lines.empty();
        if (below && !lines.empty() && isRule(lines.back(), top, bottom, menu.width()))
            lines.pop_back();
        if (below) {
            lines.emplace_back();
            top = y;
        }
        lines.back().merge(row);
        bottom = y;
    }
    return lines;
}

const TextReader& menuTextReader() {
    static const TextReader reader = [] {
        NONCLIENTMETRICSW metrics{};
        metrics.cbSize = sizeof metrics;
        SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
        return TextReader(metrics.lfMenuFont);
    }();
    return reader;
}

}  // namespace

std::vector<std::string> readRecentFiles(const RunningProgram& program) {
    const auto isFixed = [](const MenuItem& item) {
        return item.menu == menuItems().front().menu && !item.name.empty() && item.recentFile == 0;
    };
    const auto items = menuItems();
    const auto firstRecent = std::ranges::find(items, 1, &MenuItem::recentFile);
    const auto before =
        static_cast<std::size_t>(std::count_if(items.begin(), firstRecent, isFixed));
    const auto behind = static_cast<std::size_t>(std::count_if(firstRecent, items.end(), isFixed));

    const std::vector<Ink> lines = linesOf(OpenedMenu(program).settledPicture());
    if (lines.size() < before + behind)
        throw ScenarioError("the File menu lacks some of its entries");
    std::vector<std::string> recentFiles;
    for (std::size_t line = before; line < lines.size() - behind; ++line) {
        const auto text = menuTextReader().read(lines[line]);
        if (!text) throw ScenarioError("an entry of the File menu cannot be read");
        recentFiles.push_back(inCodePage(*text));
    }
    return recentFiles;
}

}  // namespace quorvel::scenario
