#include "tests/realwindow/WindowDriver.h"

#include <algorithm>
#include <cmath>

#include "platform/win32/ControlIds.h"
#include "tests/realwindow/ControlNames.h"
#include "tests/realwindow/SystemTexts.h"
#include "tests/scenario/Texts.h"
#include "window/Menu.h"

namespace quorvel::scenario {

namespace {

/// What a key does to the window that has the focus.
void pressKeyIn(HWND window, WPARAM key) {
    const UINT scanCode = MapVirtualKeyW(static_cast<UINT>(key), MAPVK_VK_TO_VSC);
    const LPARAM down = static_cast<LPARAM>(scanCode) << 16 | 1;
    const LPARAM up = down | static_cast<LPARAM>(0xC000'0000);
    PostMessageW(window, WM_KEYDOWN, key, down);
    PostMessageW(window, WM_KEYUP, key, up);
}

bool isAbsolute(std::string_view path) {
    return path.size() >= 2 && (path[1] == ':' || path.starts_with("\\\\"));
}

}  // namespace

WindowDriver::WindowDriver(const Bench& bench)
    : bench_(bench), folder_(bench.program()), queue_(bench.printing()) {}

std::string WindowDriver::programFolderText() const {
    return ProgramFolder::text;
}

std::filesystem::path WindowDriver::resolve(std::string_view path) const {
    const std::string_view text = insideProgramFolder(path).value_or(path);
    if (isAbsolute(text)) return wide(text);
    return folder_.path() / wide(text);
}

bool WindowDriver::set(const Setting& setting) {
    return std::visit(
        ForEachKind{
            [&](const SetScreen& screen) { return screen.size == bench_.screen(); },
            [&](const SetPrinter& printer) { return printer.state == bench_.printer(); },
            [](const SetDisk&) { return false; },
            [](const PlaceFile&) { return true; },
            [&](const StorePassword& stored) {
                folder_.storePassword(stored.password);
                return true;
            },
            [&](const OpenElsewhere& file) {
                heldFiles_.open(resolve(file.path), file.sharing);
                return true;
            },
            [&](const CloseElsewhere& file) {
                heldFiles_.close(resolve(file.path));
                return true;
            },
        },
        setting);
}

bool WindowDriver::act(const Action& action) {
    if (const auto* place = std::get_if<ClickPoint>(&action)) return click(*place);
    std::visit(ForEachKind{
                   [&](const Start&) { start(); },
                   [&](const ChooseMenu& menu) { chooseMenu(menu.entry); },
                   [](const ClickPoint&) {},
                   [&](const ClickControl& clicked) { clickControl(clicked.control); },
                   [&](const TypeText& typed) { type(typed.text); },
                   [&](const PressKey& pressed) { pressKey(pressed.key); },
                   [&](const MoveScrollBar& moved) { moveScrollBar(moved.bar, moved.position); },
                   [&](const CloseWindow&) { closeWindow(); },
                   [&](const EndSession&) { endSession(); },
               },
               action);
    return true;
}

HANDLE WindowDriver::process() const {
    if (!program_) throw ScenarioError("the program was not started");
    return program_->process();
}

HWND WindowDriver::mainWindow() const {
    if (!program_) throw ScenarioError("the program was not started");
    if (program_->hasEnded()) throw ScenarioError("the program has ended");
    HWND window = program_->mainWindow();
    if (window == nullptr) throw ScenarioError("the window is not open");
    return window;
}

HWND WindowDriver::control(std::string_view name) const {
    const int id = controlId(name);
    if (id == 0) throw ScenarioError("there is no such control as " + std::string(name));
    HWND window = GetDlgItem(mainWindow(), id);
    if (window == nullptr) throw ScenarioError("the window has no " + std::string(name));
    return window;
}

void WindowDriver::beginAction() {
    clientPicture_.reset();
    recentFiles_.reset();
    dialog_.reset();
    mark_.forget();
}

void WindowDriver::start() {
    if (program_ && !program_->hasEnded()) throw ScenarioError("the program is running already");
    beginAction();
    answered_.reset();
    program_ = std::make_unique<RunningProgram>(programIn(folder_.path()));
}

void WindowDriver::chooseMenu(std::string_view entry) {
    const int index = menuItemIndex(entry);
    if (index < 0) throw ScenarioError("there is no menu entry " + std::string(entry));
    HWND window = mainWindow();
    if (!visible(entry).value_or(true)) throw ScenarioError("the menu entry is hidden");
    beginAction();
    PostMessageW(window, WM_COMMAND, static_cast<WPARAM>(control_id::firstMenuCommand + index), 0);
}

/// A click reaches what stands at the place, as one with a mouse does.
void WindowDriver::clickAt(HWND window, int x, int y) {
    POINT point{x, y};
    HWND target = ChildWindowFromPointEx(window, point, CWP_SKIPINVISIBLE);
    if (target == nullptr) throw ScenarioError("the window does not reach that far");
    if (target != window) {
        POINT onScreen = point;
        ClientToScreen(window, &onScreen);
        if (ask(target, WM_NCHITTEST, 0, MAKELPARAM(onScreen.x, onScreen.y)) == HTTRANSPARENT)
            target = window;
    }
    MapWindowPoints(window, target, &point, 1);
    const LPARAM place = MAKELPARAM(point.x, point.y);
    PostMessageW(target, WM_LBUTTONDOWN, MK_LBUTTON, place);
    PostMessageW(target, WM_LBUTTONUP, 0, place);
}

bool WindowDriver::click(const ClickPoint& place) {
    // A mouse knows whole pixels only.
    if (place.x != std::floor(place.x) || place.y != std::floor(place.y)) return false;
    HWND window = mainWindow();
    beginAction();
    clickAt(window, static_cast<int>(place.x), static_cast<int>(place.y));
    return true;
}

void WindowDriver::clickControl(std::string_view name) {
    HWND window = mainWindow();
    const RECT area = clientAreaOf(control(name));
    if (controlId(name) == control_id::hsbA || controlId(name) == control_id::vsbA ||
        controlId(name) == control_id::vsbS)
        throw ScenarioError("a scroll bar is moved with scroll");
    beginAction();
    clickAt(window, (area.left + area.right) / 2, (area.top + area.bottom) / 2);
}

void WindowDriver::type(std::string_view text) {
    HWND editor = control("txtEnter");
    if (program_->focusedWindow() != editor) throw ScenarioError("no editor has the focus");
    beginAction();
    typeInto(editor, text);
}

void WindowDriver::pressKey(std::string_view key) {
    HWND focused = program_ ? program_->focusedWindow() : nullptr;
    HWND window = focused != nullptr ? focused : mainWindow();
    beginAction();
    if (key == "Enter")
        pressKeyIn(window, VK_RETURN);
    else if (key == "Escape")
        pressKeyIn(window, VK_ESCAPE);
    else if (key == "Tab")
        pressKeyIn(window, VK_TAB);
    else
        typeInto(window, key);
}

void WindowDriver::moveScrollBar(std::string_view bar, int position) {
    const auto state = scrollBar(bar);
    HWND window = mainWindow();
    HWND scrolled = control(bar);
    const UINT message = bar == "hsbA" ? WM_HSCROLL : WM_VSCROLL;
    const int reached =
        std::clamp(position, state->minimum, std::max(state->minimum, state->maximum));
    beginAction();
    const auto notify = [&](int event, int place) {
        PostMessageW(window, message, MAKEWPARAM(event, place), reinterpret_cast<LPARAM>(scrolled));
    };
    // One position is a click on an arrow, more are the thumb pulled there.
    if (reached == state->position + 1) {
        notify(SB_LINEDOWN, 0);
    } else if (reached == state->position - 1) {
        notify(SB_LINEUP, 0);
    } else {
        SCROLLINFO pulled{};
        pulled.cbSize = sizeof pulled;
        pulled.fMask = SIF_POS;
        pulled.nPos = reached;
        ask(scrolled, SBM_SETSCROLLINFO, FALSE, reinterpret_cast<LPARAM>(&pulled));
        notify(SB_THUMBPOSITION, reached);
    }
    notify(SB_ENDSCROLL, 0);
}

void WindowDriver::closeWindow() {
    HWND window = mainWindow();
    beginAction();
    PostMessageW(window, WM_SYSCOMMAND, SC_CLOSE, 0);
}

void WindowDriver::endSession() {
    HWND window = mainWindow();
    beginAction();
    sessionEnds_ = true;
    PostMessageW(window, WM_QUERYENDSESSION, 0, 0);
}

void WindowDriver::answer(const Reply& reply) {
    if (!dialog_) throw ScenarioError("no dialog is open");
    const DialogWindow answered = *dialog_;
    beginAction();
    answerDialog(answered, reply, resolve(reply.text), *program_);
    answered_ = answered;
}

}  // namespace quorvel::scenario
