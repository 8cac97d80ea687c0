#include <cstdio>
#include <filesystem>
#include <iostream>

#include "tests/realwindow/DrawingHandles.h"
#include "tests/realwindow/WindowDriver.h"
#include "tests/scenario/User.h"

#include <fcntl.h>
#include <io.h>

namespace {

using namespace quorvel::scenario;

constexpr int refreshes = 1'000;
constexpr int newSheets = 50;
/// What is kept from the first uses on is in use by then.
constexpr int firstUses = 3;

constexpr const char* place = "Grades\\class.qrv";

/// Names become aliases, aliases names: everything that the window shows is built anew.
void refresh(User& user) {
    user.act(ClickControl{"lblStudent"});
}

void makeNew(User& user) {
    user.choose("mnuNew", {pressed(quorvel::Answer::Yes)});
}

/// Whether the program holds no more than before when the action was done so often.
template <typename Action>
bool holdsNoMoreAfter(const char* what, int times, WindowDriver& driver, Action action) {
    User user(driver);
    for (int time = 0; time < firstUses; ++time) action(user);
    const int before = drawingHandles(driver.process());
    for (int time = 0; time < times; ++time) action(user);
    const int after = drawingHandles(driver.process());
    const bool same = after <= before;
    std::cout << "drawing objects before and after " << times << ' ' << what << ": " << before
              << ", " << after << (same ? ": passed\n" : ": FAILED\n");
    return same;
}

int check(const std::filesystem::path& program, const std::filesystem::path& sheet) {
    const Bench bench(program, {});
    WindowDriver driver(bench);
    User user(driver);
    user.start();
    std::filesystem::copy_file(sheet, driver.resolve(place));
    user.choose("mnuOpen", {typed(place)});
    int passed = 0;
    if (holdsNoMoreAfter("refreshes", refreshes, driver, refresh)) ++passed;
    if (holdsNoMoreAfter("times New", newSheets, driver, makeNew)) ++passed;
    std::cout << passed << " passed, " << 2 - passed << " failed\n";
    return passed == 2 ? 0 : 1;
}

}  // namespace

int wmain(int argumentCount, wchar_t** arguments) {
    _setmode(_fileno(stdout), _O_BINARY);
    if (argumentCount != 3) {
        std::cerr << "usage: window_handles PROGRAMFOLDER SHEET\n";
        return 2;
    }
    try {
        return check(arguments[1], arguments[2]);
    } catch (const std::exception& error) {
        std::cout << "the handles of the drawing system: " << error.what()
                  << ": FAILED\n0 passed, 1 failed\n";
        return 1;
    }
}
