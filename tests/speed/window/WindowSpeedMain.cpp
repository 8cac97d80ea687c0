#include <cstdio>
#include <filesystem>
#include <functional>
#include <iostream>
#include <string>
#include <utility>

#include "platform/win32/ControlIds.h"
#include "tests/realwindow/DialogControls.h"
#include "tests/realwindow/QueueMark.h"
#include "tests/realwindow/SystemTexts.h"
#include "tests/realwindow/WindowDriver.h"
#include "tests/scenario/User.h"
#include "tests/speed/window/EmptyWindow.h"
#include "window/Keys.h"

#include <fcntl.h>
#include <io.h>
#include <psapi.h>

// Measures the real window beside an empty one. Each line that comes out is one measurement: what
// was done, whose it is, and microseconds or bytes, with tabs between them. The two take turns.

namespace {

using namespace quorvel;
using namespace quorvel::scenario;

constexpr const char* place = "Grades\\class.qrv";

constexpr int keysMeasured = 200;
constexpr int openingsMeasured = 15;
constexpr int startsMeasured = 15;
constexpr int printsMeasured = 9;
/// The two windows stand side by side, since nothing is copied to what is covered.
constexpr int emptyWindowLeft = 800;
constexpr DWORD startTimeout = 20'000;  // milliseconds

double microseconds() {
    LARGE_INTEGER now{};
    LARGE_INTEGER ticksPerSecond{};
    QueryPerformanceCounter(&now);
    QueryPerformanceFrequency(&ticksPerSecond);
    return static_cast<double>(now.QuadPart) * 1e6 / static_cast<double>(ticksPerSecond.QuadPart);
}

void tell(std::string_view work, std::string_view whose, double figure) {
    std::cout << work << '\t' << whose << '\t' << static_cast<long long>(figure) << '\n';
}

/// A window whose program is used by messages.
class Subject {
  public:
    explicit Subject(HWND window) : window_(window), box_(GetDlgItem(window, control_id::txtAV)) {
        if (box_ == nullptr) throw ScenarioError("the window has no box for marks");
    }

    /// How long the program takes over what `post` posts to it, painting included.
    double timeOf(const std::function<void()>& post) {
        const double start = microseconds();
        post();
        mark_.post(box_);
        while (!mark_.isReached()) {
        }
        return microseconds() - start;
    }

    void post(UINT message, WPARAM parameter) const {
        PostMessageW(window_, message, parameter, 0);
    }
    void press(int keyCode) const { post(WM_KEYDOWN, static_cast<WPARAM>(keyCode)); }
    HWND window() const { return window_; }

  private:
    HWND window_;
    HWND box_;
    QueueMark mark_;
};

/// From Enter, behind a score that was typed, to the window that shows it.
double enterScore(Subject& quorvel, int count) {
    const HWND editor = GetDlgItem(quorvel.window(), control_id::txtEnter);
    quorvel.timeOf([&] { quorvel.press(key::f2); });
    quorvel.timeOf(
        [&] { PostMessageW(editor, WM_CHAR, '0' + static_cast<WPARAM>(count % 10), 0); });
    return quorvel.timeOf([&] { PostMessageW(editor, WM_KEYDOWN, VK_RETURN, 0); });
}

double scrollStep(Subject& quorvel, int count) {
    return quorvel.timeOf([&] { quorvel.press(count % 2 == 0 ? key::down : key::up); });
}

/// From the end of the file dialog on.
double openSheet(WindowDriver& driver, Subject& quorvel) {
    driver.act(ChooseMenu{"mnuOpen"});
    if (!driver.openDialog()) throw ScenarioError("the file dialog is missing");
    const HWND dialog = GetLastActivePopup(quorvel.window());
    const std::wstring file = driver.resolve(place).wstring();
    ask(GetDlgItem(dialog, dialog_control::fileName), WM_SETTEXT, 0,
        reinterpret_cast<LPARAM>(file.c_str()));
    PostMessageW(GetDlgItem(dialog, IDOK), BM_CLICK, 0, 0);
    while (IsWindow(dialog) != 0) {
    }
    driver.forgetDialog();
    return quorvel.timeOf([] {});
}

/// What is measured is what was meant.
void requireScore(Subject& quorvel, const std::string& score) {
    quorvel.timeOf([&] { quorvel.press(key::f2); });
    const HWND editor = GetDlgItem(quorvel.window(), control_id::txtEnter);
    if (IsWindowVisible(editor) == 0 || textOf(editor) != score)
        throw ScenarioError("the score that was entered is not there");
}

class Measurements {
  public:
    /// `empty` is the program that does as little as it can.
    Measurements(const Bench& bench, std::filesystem::path empty)
        : bench_(bench), empty_(std::move(empty)) {}

    void ofClass(const std::string& name, const std::filesystem::path& sheet) const {
        WindowDriver driver(bench_);
        open(driver, sheet);
        Subject quorvel(driver.mainWindow());
        for (int count = 0; count < openingsMeasured; ++count)
            tell("a sheet opened, " + name, "ours", openSheet(driver, quorvel));

        const RunningProgram emptyProgram(empty_);
        Subject empty = emptySubject(emptyProgram);
        const auto emptyKey = [&] { return empty.timeOf([&] { empty.press(key::down); }); };
        for (int count = 0; count < keysMeasured; ++count) {
            tell("key to painted, " + name, "ours", enterScore(quorvel, count));
            tell("key to painted, " + name, "peer", emptyKey());
            tell("a scroll step, " + name, "ours", scrollStep(quorvel, count));
            tell("a scroll step, " + name, "peer", emptyKey());
        }
        requireScore(quorvel, std::to_string((keysMeasured - 1) % 10));
        tell("peak memory, " + name, "ours", peakMemory(driver.process()));
        tell("peak memory, " + name, "peer", peakMemory(emptyProgram.process()));
    }

    void ofStarts() const {
        const ProgramFolder folder(bench_.program());
        for (int count = 0; count < startsMeasured; ++count) {
            tell("start to the first painted window", "ours", startOf(programIn(folder.path())));
            tell("start to the first painted window", "peer", startOf(empty_));
        }
    }

    void ofPrinting(const std::filesystem::path& sheet, const std::filesystem::path& text) const {
        WindowDriver driver(bench_);
        open(driver, sheet);
        Subject quorvel(driver.mainWindow());
        const RunningProgram emptyProgram(empty_, text.wstring());
        Subject empty = emptySubject(emptyProgram);
        for (int count = 0; count < printsMeasured; ++count) {
            driver.act(ChooseMenu{"mnuPrint"});
            if (!driver.openDialog())
                throw ScenarioError("the question about the report is missing");
            tell("print report 1", "ours", quorvel.timeOf([&] { driver.answer(typed("1")); }));
            tell("print report 1", "peer", empty.timeOf([&] { empty.post(printMessage, 0); }));
        }
    }

  private:
    static void open(WindowDriver& driver, const std::filesystem::path& sheet) {
        User user(driver);
        user.start();
        std::filesystem::copy_file(sheet, driver.resolve(place));
        user.choose("mnuOpen", {typed(place)});
        SetWindowPos(driver.mainWindow(), nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    }

    static Subject emptySubject(const RunningProgram& program) {
        WaitForInputIdle(program.process(), startTimeout);
        SetWindowPos(program.mainWindow(), nullptr, emptyWindowLeft, 0, 0, 0,
                     SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
        return Subject(program.mainWindow());
    }

    /// A program waits for input once its window is painted.
    static double startOf(const std::filesystem::path& program) {
        const double start = microseconds();
        const RunningProgram started(program);
        WaitForInputIdle(started.process(), startTimeout);
        return microseconds() - start;
    }

    static double peakMemory(HANDLE process) {
        PROCESS_MEMORY_COUNTERS counters{};
        counters.cb = sizeof counters;
        if (GetProcessMemoryInfo(process, &counters, sizeof counters) == 0)
            throw ScenarioError("the program's memory cannot be measured");
        return static_cast<double>(counters.PeakWorkingSetSize);
    }

    const Bench& bench_;
    std::filesystem::path empty_;
};

}  // namespace

int wmain(int argumentCount, wchar_t** arguments) {
    _setmode(_fileno(stdout), _O_BINARY);
    if (argumentCount != 8) {
        std::cerr
            << "usage: window_speed PROGRAMFOLDER EMPTYPROGRAM PRINTING TYPICALSHEET LARGESHEET"
               " SHEET REPORT\n";
        return 2;
    }
    try {
        const Bench bench(arguments[1], arguments[3]);
        const Measurements measurements(bench, arguments[2]);
        measurements.ofStarts();
        measurements.ofClass("35 × 40", arguments[4]);
        measurements.ofClass("1,000 × 200", arguments[5]);
        measurements.ofPrinting(arguments[6], arguments[7]);
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "the real window cannot be measured: " << error.what() << '\n';
        return 1;
    }
}
