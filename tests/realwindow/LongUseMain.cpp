#include <array>
#include <cstdio>
#include <filesystem>
#include <iostream>
#include <string>

#include "tests/realwindow/ResourceCounts.h"
#include "tests/realwindow/WindowDriver.h"
#include "tests/scenario/User.h"

#include <fcntl.h>
#include <io.h>

namespace {

using namespace quorvel::scenario;
using quorvel::Answer;

/// What is kept from the first uses on is in use by then.
constexpr int firstCommands = 1'000;
constexpr int commandsBetweenLooks = 1'000;
/// What the system itself gives and takes between two looks.
constexpr int spareObjects = 4;
constexpr std::size_t spareMemory = 256 * 1024;

constexpr const char* sheet = "Grades\\class.qrv";
/// Where a name behind all others of that class stands.
constexpr const char* lastStudent = "29";

/// Uses the program like a teacher does, on a sheet of its own.
class Teacher {
  public:
    explicit Teacher(WindowDriver& driver) : driver_(driver), user_(driver) {}

    void open(const std::filesystem::path& file) {
        user_.start();
        std::filesystem::copy_file(file, driver_.resolve(sheet));
        user_.choose("mnuOpen", {typed(sheet)});
    }

    /// One command after the other, from the first again behind the last.
    void nextCommand() {
        static constexpr std::array commands{
            &Teacher::enterScore,  &Teacher::showAliases, &Teacher::enterScore,
            &Teacher::editStudent, &Teacher::enterScore,  &Teacher::showRanks,
            &Teacher::addAndSave,  &Teacher::scroll,      &Teacher::cancelAdding,
            &Teacher::enterScore,  &Teacher::askAbout,    &Teacher::makeNew,
        };
        (this->*commands[static_cast<std::size_t>(used_) % commands.size()])();
        ++used_;
    }

    void save() { user_.choose("mnuSave"); }

    /// A score of its own into the first cell.
    void enterScore() {
        user_.act(ClickPoint{160, 20});
        user_.enter(std::to_string(used_ % 20));
    }

    /// The sheet goes on as a new one, which asks for its place.
    void makeNew() {
        driver_.act(ChooseMenu{"mnuNew"});
        user_.answer(pressed(Answer::Yes));
        if (driver_.openDialog()) user_.answer(pressed(Answer::No));
        user_.finish();
        user_.choose("mnuSave", {typed(sheet)});
    }

  private:
    void showAliases() { user_.act(ClickControl{"lblStudent"}); }
    void showRanks() { user_.act(ClickControl{"lblSN"}); }
    void scroll() {
        for (const int position : {2, 5, 1}) user_.act(MoveScrollBar{"vsbS", position});
    }
    void editStudent() {
        user_.choose("mnuEditS", {typed("1"), typed("Aaron, Ann"), typed("Ann")});
    }
    void cancelAdding() { user_.choose("mnuAddA", {cancelled(), pressed(Answer::Ok)}); }
    void addAndSave() {
        user_.choose("mnuAddS", {typed("Zorn, Zoe"), typed("Zoe")});
        user_.choose("mnuRemoveS", {typed(lastStudent)});
        save();
    }
    void askAbout() { user_.choose("mnuAbout", {pressed(Answer::Ok)}); }

    WindowDriver& driver_;
    User user_;
    int used_ = 0;
};

bool holdsNoMore(const ResourceCounts& now, const ResourceCounts& before) {
    return now.drawingObjects <= before.drawingObjects + spareObjects &&
           now.userObjects <= before.userObjects + spareObjects &&
           now.kernelObjects <= before.kernelObjects + spareObjects &&
           now.memory <= before.memory + spareMemory;
}

/// Whether the program holds no more after all commands than after the first ones.
bool staysFlat(WindowDriver& driver, Teacher& teacher, int commands) {
    ResourceCounts first;
    ResourceCounts now;
    for (int count = 1; count <= commands; ++count) {
        teacher.nextCommand();
        if (count % commandsBetweenLooks != 0) continue;
        now = resourcesOf(driver.process());
        if (count == firstCommands) first = now;
        std::cout << "after " << count << " commands: " << described(now) << std::endl;
    }
    const bool flat = holdsNoMore(now, first);
    std::cout << commands << " commands: " << (flat ? "passed\n" : "FAILED\n");
    return flat;
}

/// Whether a sheet that never changes its size is as long as it was after many saves, and alone in
/// its folder.
bool staysAsLong(WindowDriver& driver, Teacher& teacher, int saves) {
    teacher.makeNew();
    const std::filesystem::path file = driver.resolve(sheet);
    const auto before = std::filesystem::file_size(file);
    for (int count = 0; count < saves; ++count) {
        teacher.enterScore();
        teacher.save();
    }
    const auto after = std::filesystem::file_size(file);
    const auto files = std::distance(std::filesystem::directory_iterator(file.parent_path()), {});
    const bool same = after == before && files == 1;
    std::cout << saves << " saves: " << before << " bytes before, " << after << " after, " << files
              << " files in the folder" << (same ? ": passed\n" : ": FAILED\n");
    return same;
}

int check(const std::filesystem::path& program, const std::filesystem::path& class_, int commands,
          int saves) {
    const Bench bench(program, {});
    WindowDriver driver(bench);
    Teacher teacher(driver);
    teacher.open(class_);
    int passed = 0;
    if (staysFlat(driver, teacher, commands)) ++passed;
    if (staysAsLong(driver, teacher, saves)) ++passed;
    std::cout << passed << " passed, " << 2 - passed << " failed\n";
    return passed == 2 ? 0 : 1;
}

}  // namespace

int wmain(int argumentCount, wchar_t** arguments) {
    _setmode(_fileno(stdout), _O_BINARY);
    if (argumentCount != 5) {
        std::cerr << "usage: window_long_use PROGRAMFOLDER SHEET COMMANDS SAVES\n";
        return 2;
    }
    try {
        return check(arguments[1], arguments[2], std::stoi(arguments[3]), std::stoi(arguments[4]));
    } catch (const std::exception& error) {
        std::cout << "long use: " << error.what() << ": FAILED\n0 passed, 1 failed\n";
        return 1;
    }
}
