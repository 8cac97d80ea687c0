#include <array>
#include <map>

#include "platform/win32/ControlIds.h"
#include "tests/realwindow/ControlNames.h"
#include "tests/realwindow/MenuReader.h"
#include "tests/realwindow/SystemTexts.h"
#include "tests/realwindow/WindowDriver.h"
#include "tests/scenario/Records.h"
#include "window/Menu.h"

namespace quorvel::scenario {

namespace {

constexpr DWORD paintingPause = 25;  // milliseconds
constexpr int paintingTries = 40;

bool overlaps(const RECT& first, const RECT& second) {
    RECT common{};
    return IntersectRect(&common, &first, &second) != 0;
}

bool isMenuEntry(std::string_view name) {
    return menuItemIndex(name) >= 0;
}

/// The number of a recent-file entry, from 1; 0 for the other entries.
int recentFileNumber(std::string_view name) {
    return menuItems()[static_cast<std::size_t>(menuItemIndex(name))].recentFile;
}

/// The places in the list of recent files, from 0, where there is one.
std::vector<std::size_t> listedRecentFiles(const std::filesystem::path& folder) {
    std::vector<std::size_t> listed;
    const auto bytes = fileBytes(folder / "LS.qrv");
    for (std::size_t place = 0; bytes && place * recordLength + 1 < bytes->size(); ++place)
        if ((*bytes)[place * recordLength] != std::byte{}) listed.push_back(place);
    return listed;
}

void requireEditor(std::string_view control) {
    if (control != "txtEnter") throw ScenarioError("only txtEnter can be asked for that");
}

}  // namespace

std::optional<std::string> WindowDriver::windowCaption() {
    return textOf(mainWindow());
}

std::optional<std::string> WindowDriver::text(std::string_view name) {
    if (isMenuEntry(name)) return menuEntryText(name);
    return textOf(control(name));
}

std::optional<bool> WindowDriver::visible(std::string_view name) {
    if (isMenuEntry(name)) return menuEntryIsVisible(name);
    return IsWindowVisible(control(name)) != 0;
}

/// The captions of the recent-file entries as the menu shows them, nothing for one that it does not
/// show; nothing at all while the menu cannot be opened.
const std::optional<WindowDriver::RecentFiles>& WindowDriver::recentFiles() {
    if (recentFiles_ || IsWindowEnabled(mainWindow()) == 0) return recentFiles_;
    const std::vector<std::string> shown = readRecentFiles(*program_);
    recentFiles_.emplace();
    // The menu shows no numbers. Where entries are missing between others, the list on the disk
    // tells which.
    const std::vector<std::size_t> listed = listedRecentFiles(folder_.path());
    for (std::size_t line = 0; line < shown.size() && line < recentFiles_->size(); ++line)
        (*recentFiles_)[listed.size() == shown.size() ? listed[line] : line] = shown[line];
    return recentFiles_;
}

std::optional<std::string> WindowDriver::menuEntryText(std::string_view name) {
    const int number = recentFileNumber(name);
    if (number == 0 || !recentFiles()) return std::nullopt;
    return (*recentFiles_)[static_cast<std::size_t>(number) - 1].value_or("");
}

std::optional<bool> WindowDriver::menuEntryIsVisible(std::string_view name) {
    // Only recent files come and go.
    const int number = recentFileNumber(name);
    if (number == 0) return true;
    if (!recentFiles()) return std::nullopt;
    return (*recentFiles_)[static_cast<std::size_t>(number) - 1].has_value();
}

std::optional<bool> WindowDriver::focused(std::string_view name) {
    requireEditor(name);
    return program_->focusedWindow() == control(name);
}

RECT WindowDriver::clientAreaOf(HWND child) const {
    RECT area{};
    GetWindowRect(child, &area);
    MapWindowPoints(nullptr, mainWindow(), reinterpret_cast<POINT*>(&area), 2);
    return area;
}

std::optional<ClickPoint> WindowDriver::position(std::string_view name) {
    const RECT area = clientAreaOf(control(name));
    return ClickPoint{static_cast<double>(area.left), static_cast<double>(area.top)};
}

std::optional<std::string> WindowDriver::selectedText(std::string_view name) {
    requireEditor(name);
    HWND editor = control(name);
    DWORD start = 0;
    DWORD end = 0;
    ask(editor, EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    return textOf(editor).substr(start, end - start);
}

std::optional<BarState> WindowDriver::scrollBar(std::string_view name) {
    SCROLLINFO bar{};
    bar.cbSize = sizeof bar;
    bar.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    ask(control(name), SBM_GETSCROLLINFO, 0, reinterpret_cast<LPARAM>(&bar));
    // The thumb's own length is part of the range.
    const int beyond = bar.nPage > 0 ? static_cast<int>(bar.nPage) - 1 : 0;
    return BarState{bar.nMin, bar.nMax - beyond, bar.nPos};
}

bool WindowDriver::isCovered(const RECT& area) const {
    HWND window = mainWindow();
    RECT onScreen = area;
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&onScreen), 2);
    for (HWND above = GetWindow(window, GW_HWNDPREV); above != nullptr;
         above = GetWindow(above, GW_HWNDPREV)) {
        RECT other{};
        if (IsWindowVisible(above) != 0 && GetWindowRect(above, &other) != 0 &&
            overlaps(other, onScreen))
            return true;
    }
    return false;
}

/// What the client area shows when everything is painted.
const Picture& WindowDriver::clientPicture() {
    if (clientPicture_) return *clientPicture_;
    HWND window = mainWindow();
    RECT area{};
    GetClientRect(window, &area);
    std::optional<Picture> before;
    for (int tries = 0; tries < paintingTries; ++tries) {
        if (GetUpdateRect(window, nullptr, FALSE) == 0) {
            ask(window, WM_NULL);
            Picture shown = pictureOf(window, 0, 0, area.right, area.bottom);
            const bool settled = before == shown;
            before = std::move(shown);
            if (settled) break;
        }
        Sleep(paintingPause);
    }
    if (!before) throw ScenarioError("the window is not painted");
    clientPicture_ = std::move(before);
    return *clientPicture_;
}

std::optional<std::uint32_t> WindowDriver::colour(std::string_view name) {
    const RECT area = clientAreaOf(control(name));
    if (isCovered(area)) return std::nullopt;
    const Picture& shown = clientPicture();
    if (!shown.contains(area.left, area.top, area.right - area.left, area.bottom - area.top))
        throw ScenarioError("the control is not wholly in the window");
    // The ground is what most pixels have.
    std::map<std::uint32_t, int> pixels;
    for (int y = area.top; y < area.bottom; ++y)
        for (int x = area.left; x < area.right; ++x) ++pixels[shown.at(x, y)];
    std::pair<std::uint32_t, int> most{};
    for (const auto& [colour, count] : pixels)
        if (count > most.second) most = {colour, count};
    return most.first;
}

std::optional<int> WindowDriver::glyphAt(Surface surface, int x, int y) {
    const Layout& layout = bench_.layout();
    const Rectangle& canvas = surface == Surface::Grid ? layout.gridCanvas : layout.bottomCanvas;
    const RECT area{canvas.left + x, canvas.top + y, canvas.left + x + Canvas::glyphWidth,
                    canvas.top + y + Canvas::glyphHeight};
    if (y + Canvas::glyphHeight > canvas.height || isCovered(area)) return std::nullopt;
    HWND editor = control("txtEnter");
    if (IsWindowVisible(editor) != 0 && overlaps(clientAreaOf(editor), area)) return std::nullopt;
    return bench_.glyphs().glyphAt(clientPicture(), canvas.left, canvas.top, surface, x, y);
}

int WindowDriver::visibleColumns() {
    return bench_.layout().visibleColumns;
}

int WindowDriver::rightColumnsShift() {
    return bench_.layout().rightColumnsShift;
}

std::optional<std::vector<std::byte>> WindowDriver::contentOf(std::string_view path) {
    const std::filesystem::path file = resolve(path);
    return heldFiles_.contains(file) ? heldFiles_.contentOf(file) : fileBytes(file);
}

std::optional<std::vector<PrintedJob>> WindowDriver::printedJobs() {
    return queue_.jobs();
}

std::optional<std::vector<FileCopy>> WindowDriver::copies() {
    return std::nullopt;
}

std::optional<std::vector<std::string>> WindowDriver::launches() {
    std::vector<std::string> launches;
    if (!program_) return launches;
    for (auto [commandLine, workingFolder] : program_->startedPrograms()) {
        // It would keep the folder from being moved or removed.
        if (std::filesystem::equivalent(workingFolder, folder_.path()))
            throw ScenarioError("what the program started works in the program's folder");
        // Windows starts no program behind a blank, and takes a path with blanks in quotation
        // marks: both are how it is asked, not what is asked for.
        std::erase(commandLine, L'"');
        launches.push_back(" " + inCodePage(commandLine));
    }
    return launches;
}

}  // namespace quorvel::scenario
