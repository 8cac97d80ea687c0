#include "tests/realwindow/MenuReader.h"

#include <optional>

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
/// An entry is at least this high.
constexpr int lowestEntry = 10;

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

    /// What is inside its frame.
    Picture picture() const {
        RECT area{};
        GetWindowRect(openPopup(program_), &area);
        const WindowDC screen(nullptr);
        return pictureOf(screen.get(), area.left + frame, area.top + frame,
                         area.right - area.left - 2 * frame, area.bottom - area.top - 2 * frame);
    }

  private:
    const RunningProgram& program_;
    HWND window_;
};

/// What is not the ground of its row, in the rows from `top` to before `bottom`. Each row has its
/// own ground: the chosen entry's is another.
Ink inkOf(const Picture& menu, int top, int bottom) {
    Ink ink;
    for (int y = top; y < bottom; ++y) {
        const std::uint32_t ground = menu.at(0, y);
        for (int x = 0; x < menu.width(); ++x)
            if (menu.at(x, y) != ground) ink.emplace(x, y);
    }
    return ink;
}

/// The first row of each rule between groups of entries: its ink reaches from side to side.
std::vector<int> rulesOf(const Picture& menu) {
    std::vector<int> rules;
    for (int y = 0; y < menu.height(); ++y) {
        const Ink row = inkOf(menu, y, y + 1);
        const bool isRule = static_cast<int>(row.size()) > menu.width() * 3 / 4;
        if (isRule && (rules.empty() || rules.back() != y - 1)) rules.push_back(y);
    }
    return rules;
}

/// How many entries stand before, between and behind the rules of the File menu where it has no
/// recent files; with some, they are a group of their own before the last one.
struct FixedGroups {
    int first = 0;
    int second = 0;
    int last = 0;
};

FixedGroups fixedGroups() {
    std::vector<int> groups(1);
    for (const MenuItem& item : menuItems()) {
        if (item.menu != menuItems().front().menu) break;
        if (item.name.empty())
            groups.push_back(0);
        else if (item.recentFile == 0)
            ++groups.back();
    }
    return {groups.at(0), groups.at(1), groups.back()};
}

/// The first rows of the entries for recent files, and how high each is.
struct RecentEntries {
    std::vector<int> tops;
    int height = 0;
};

/// Entries are equally high and so are rules, so that the rules alone tell where entries stand, an
/// empty one, too. Nothing where this is no whole File menu, such as one that is still painted.
std::optional<RecentEntries> recentEntriesOf(const Picture& menu) {
    const FixedGroups fixed = fixedGroups();
    const std::vector<int> rules = rulesOf(menu);
    if (rules.size() != 2 && rules.size() != 3) return std::nullopt;

    // Between two rules lies their group and one rule, outside them the other two groups and one.
    // The frame below may be a pixel narrower than that above, hence the rounding.
    const int between = rules[1] - rules[0];
    const int outside = rules.front() + menu.height() - rules.back();
    const int entriesMore = fixed.first + fixed.last - fixed.second;
    const int height = (outside - between + entriesMore / 2) / entriesMore;
    const int ruleHeight = between - fixed.second * height;
    const int aboveInk = rules.front() - fixed.first * height;
    if (height < lowestEntry || aboveInk < 0 || aboveInk >= ruleHeight) return std::nullopt;
    // Painted from top to bottom.
    if (inkOf(menu, menu.height() - height, menu.height()).empty()) return std::nullopt;

    RecentEntries entries{{}, height};
    for (int top = rules[1] - aboveInk + ruleHeight; top < rules.back() - aboveInk; top += height)
        entries.tops.push_back(top);
    return entries;
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
    const OpenedMenu menu(program);
    std::optional<Picture> shown;
    std::optional<RecentEntries> entries;
    waitUntil("is never shown as a whole", [&] {
        std::optional<Picture> before = std::move(shown);
        shown = menu.picture();
        if (before != shown) return false;
        entries = recentEntriesOf(*shown);
        return entries.has_value();
    });
    std::vector<std::string> recentFiles;
    for (const int top : entries->tops) {
        const auto text = menuTextReader().read(inkOf(*shown, top, top + entries->height));
        if (!text) throw ScenarioError("an entry of the File menu cannot be read");
        recentFiles.push_back(inCodePage(*text));
    }
    return recentFiles;
}

}  // namespace quorvel::scenario
