#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <random>
#include <string>

#include "tests/realwindow/WindowDriver.h"
#include "tests/scenario/User.h"

#include <fcntl.h>
#include <io.h>

namespace {

using namespace quorvel::scenario;

constexpr const char* place = "Grades\\class.qrv";
/// Of so many saves one is let come to its end.
constexpr int savesBetweenWholeOnes = 10;
constexpr DWORD endingTimeout = 10'000;  // milliseconds

std::string bytesOf(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// The program with the class open, and named otherwise than in its file.
void openChanged(WindowDriver& driver, const std::string& title) {
    User user(driver);
    user.start();
    user.choose("mnuOpen", {typed(place)});
    user.choose("mnuEditGradesheetTitle", {typed(title)});
}

void kill(const WindowDriver& driver) {
    TerminateProcess(driver.process(), 0);
    WaitForSingleObject(driver.process(), endingTimeout);
}

/// Saves that are killed at a moment somewhere around their end.
class Kills {
  public:
    Kills(WindowDriver& driver, const std::filesystem::path& sheet)
        : driver_(driver), file_(driver.resolve(place)) {
        std::filesystem::create_directories(file_.parent_path());
        std::filesystem::copy_file(sheet, file_);
        // The same length and other bytes: the second save writes over the first.
        first_ = saveWhole("First");
        second_ = saveWhole("Second");
        if (first_ == second_) throw ScenarioError("the two sheets are the same");
    }

    void times(int count) {
        for (int number = 1; number <= count; ++number) {
            killOnce();
            if (number % savesBetweenWholeOnes == 0) expectTidied();
        }
        expectTidied();
    }

    void tell() const {
        std::cout << kept_ << " old, " << replaced_ << " new, none broken; " << leftBeside_
                  << " left a file beside it, all gone with the next save\n";
    }

  private:
    std::string saveWhole(const std::string& title) {
        openChanged(driver_, title);
        User(driver_).choose("mnuSave");
        kill(driver_);
        return bytesOf(file_);
    }

    void killOnce() {
        const std::string before = bytesOf(file_);
        openChanged(driver_, before == first_ ? "Second" : "First");
        driver_.act(ChooseMenu{"mnuSave"});
        Sleep(std::uniform_int_distribution<DWORD>(0, longestDelay_)(random_));
        kill(driver_);

        const std::string after = bytesOf(file_);
        if (after != first_ && after != second_)
            throw ScenarioError("a killed save left a broken file of " +
                                std::to_string(after.size()) + " bytes");
        // Kept near the moment at which half of the saves are done.
        if (after == before) {
            ++kept_;
            longestDelay_ += std::max<DWORD>(1, longestDelay_ / 8);
        } else {
            ++replaced_;
            longestDelay_ -= longestDelay_ / 8;
        }
        if (files() > 1) ++leftBeside_;
    }

    void expectTidied() {
        saveWhole("First");
        if (bytesOf(file_) != first_) throw ScenarioError("the next save wrote another sheet");
        if (files() != 1) throw ScenarioError("the next save left a file beside its own");
    }

    /// The files of the folder.
    long long files() const {
        return std::distance(std::filesystem::directory_iterator(file_.parent_path()), {});
    }

    WindowDriver& driver_;
    std::filesystem::path file_;
    std::string first_;
    std::string second_;
    std::mt19937 random_{1};
    DWORD longestDelay_ = 100;  // milliseconds
    int kept_ = 0;
    int replaced_ = 0;
    int leftBeside_ = 0;
};

int check(const std::filesystem::path& program, const std::filesystem::path& sheet, int count) {
    const Bench bench(program, {});
    WindowDriver driver(bench);
    Kills kills(driver, sheet);
    kills.times(count);
    kills.tell();
    std::cout << count << " passed, 0 failed\n";
    return EXIT_SUCCESS;
}

}  // namespace

/// window_kills PROGRAMFOLDER SHEET COUNT
int wmain(int argumentCount, wchar_t** arguments) {
    _setmode(_fileno(stdout), _O_BINARY);
    if (argumentCount != 4) {
        std::cerr << "usage: window_kills PROGRAMFOLDER SHEET COUNT\n";
        return 2;
    }
    try {
        return check(arguments[1], arguments[2], _wtoi(arguments[3]));
    } catch (const std::exception& error) {
        std::cout << "kills around Save: " << error.what() << ": FAILED\n0 passed, 1 failed\n";
        return EXIT_FAILURE;
    }
}
