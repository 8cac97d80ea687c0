#include <algorithm>
#include <atomic>
#include <cstdio>
#include <filesystem>
#include <future>
#include <iostream>
#include <vector>

#include "platform/win32/ControlIds.h"
#include "platform/win32/ControlParts.h"
#include "tests/realwindow/Picture.h"
#include "tests/realwindow/SystemTexts.h"
#include "tests/realwindow/WindowDriver.h"
#include "tests/scenario/User.h"

#include <fcntl.h>
#include <io.h>

namespace {

using namespace quorvel::scenario;

int passed = 0;
int failed = 0;

void check(const char* what, bool holds) {
    std::cout << what << (holds ? ": passed\n" : ": FAILED\n") << std::flush;
    ++(holds ? passed : failed);
}

/// The window of the dialog that is open.
HWND openWindow(Driver& driver) {
    const auto dialog = driver.openDialog();
    if (!dialog) throw ScenarioError("a dialog is missing");
    HWND window = FindWindowW(nullptr, wide(dialog->title).c_str());
    if (window == nullptr) throw ScenarioError("the dialog's window cannot be found");
    return window;
}

/// Nothing but its box closes a password window.
void tryEscape(WindowDriver& driver) {
    driver.set(StorePassword{"secret"});
    driver.act(Start{});
    HWND window = openWindow(driver);
    for (const UINT message : {UINT{WM_KEYDOWN}, UINT{WM_KEYUP}})
        PostMessageW(GetDlgItem(window, quorvel::control_id::txtPW), message, VK_ESCAPE, 1);
    driver.forgetDialog();
    check("Escape leaves a password window open", driver.openDialog().has_value());
    User user(driver);
    user.answer(typed("secret"));
    user.finish();
    check("which then takes the password", driver.windowCaption() == "Quorvel");
}

bool hasInk(const Picture& text) {
    for (int y = 0; y < text.height(); ++y)
        for (int x = 0; x < text.width(); ++x)
            if (text.at(x, y) != text.at(0, 0)) return true;
    return false;
}

bool isInside(const RECT& inner, const RECT& outer) {
    RECT common{};
    IntersectRect(&common, &inner, &outer);
    return EqualRect(&common, &inner) != 0;
}

/// A word that is wider than the screen is wrapped like any text, and all of it is shown.
void tryLongWord(WindowDriver& driver) {
    User user(driver);
    user.choose("mnuAddS", {typed(std::string(quorvel::longestTextAnswer, 'W')), typed("Wanda")});
    user.choose("mnuAddA", {typed("Quiz"), typed("20")});
    driver.act(ChooseMenu{"mnuInputA"});
    user.answer(typed("1"));
    HWND window = openWindow(driver);
    RECT place{};
    GetWindowRect(window, &place);
    check("a prompt with a long word is on the screen", isInside(place, quorvel::workArea(window)));

    RECT question{};
    GetWindowRect(GetDlgItem(window, quorvel::control_id::promptQuestion), &question);
    MapWindowPoints(nullptr, window, reinterpret_cast<POINT*>(&question), 2);
    const quorvel::UniqueFont font = quorvel::messageFont();
    const int line = quorvel::measureFont(nullptr, font.get()).lineHeight;
    check("and its last line is seen",
          hasInk(pictureOf(window, question.left, question.bottom - line,
                           question.right - question.left, line)));
    user.answer(cancelled());
    user.answer(pressed(quorvel::Answer::Ok));
    user.finish();
}

HCURSOR shownCursor() {
    CURSORINFO cursor{};
    cursor.cbSize = sizeof cursor;
    GetCursorInfo(&cursor);
    return cursor.hCursor;
}

/// Looks at the cursor, again and again, until it is told that this is enough.
class CursorWatch {
  public:
    std::vector<HCURSOR> seen() {
        enough_ = true;
        return seen_.get();
    }

  private:
    std::vector<HCURSOR> watch() const {
        constexpr DWORD pause = 10;  // milliseconds
        std::vector<HCURSOR> seen;
        for (; !enough_; Sleep(pause)) seen.push_back(shownCursor());
        return seen;
    }

    std::atomic<bool> enough_ = false;
    std::future<std::vector<HCURSOR>> seen_ =
        std::async(std::launch::async, [this] { return watch(); });
};

/// Whether another cursor than that of the end is shown while a sheet is opened that another
/// program has locked, which takes about a second.
bool showsItWaits(WindowDriver& driver) {
    constexpr std::ptrdiff_t looks = 3;
    driver.act(ChooseMenu{"mnuOpen"});
    User user(driver);
    user.answer(typed("Grades\\class.qrv"));
    CursorWatch watch;
    user.finish();
    const auto seen = watch.seen();
    HCURSOR atRest = shownCursor();
    return std::ranges::count_if(seen, [&](HCURSOR cursor) { return cursor != atRest; }) >= looks;
}

void tryWaitCursor(WindowDriver& driver, const std::filesystem::path& sheet) {
    std::filesystem::copy_file(sheet, driver.resolve("Grades\\class.qrv"));
    driver.set(OpenElsewhere{"Grades\\class.qrv", FileSharing::Nothing});
    // What a busy machine keeps this process from seeing, it sees the next time.
    constexpr int tries = 20;
    bool shown = false;
    for (int count = 0; count < tries && !shown; ++count) shown = showsItWaits(driver);
    check("the cursor says that something takes its time", shown);
}

int checkAll(const std::filesystem::path& program, const std::filesystem::path& sheet) {
    const Bench bench(program, {});
    WindowDriver driver(bench);
    tryEscape(driver);
    tryWaitCursor(driver, sheet);
    tryLongWord(driver);
    std::cout << passed << " passed, " << failed << " failed\n";
    return failed == 0 ? 0 : 1;
}

}  // namespace

int wmain(int argumentCount, wchar_t** arguments) {
    _setmode(_fileno(stdout), _O_BINARY);
    if (argumentCount != 3) {
        std::cerr << "usage: window_dialogs PROGRAMFOLDER SHEET\n";
        return 2;
    }
    try {
        return checkAll(arguments[1], arguments[2]);
    } catch (const std::exception& error) {
        std::cout << "dialogs: " << error.what() << ": FAILED\n"
                  << passed << " passed, " << failed + 1 << " failed\n";
        return 1;
    }
}
