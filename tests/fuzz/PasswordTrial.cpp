#include <string>

#include "access/Password.h"
#include "storage/RecordFile.h"
#include "tests/fakes/FakeMainWindow.h"
#include "tests/fakes/FakeShell.h"
#include "tests/fakes/MemoryFiles.h"
#include "tests/fakes/UnusedPorts.h"
#include "tests/fuzz/Trials.h"

namespace quorvel::fuzz {

namespace {

constexpr const char* passwordFile = "/machine/password";

void require(bool holds, const char* what) {
    if (!holds) throw Broken(what);
}

/// A user who types the same into every box of a password window.
class PasswordTyper final : public Dialogs {
  public:
    std::string entry;

    std::string prompt(const Prompt&) override { throw Broken("a prompt was not expected"); }
    Answer message(const Message&) override { return Answer::Ok; }
    std::optional<std::filesystem::path> openFile(std::string_view,
                                                  const std::filesystem::path&) override {
        throw Broken("a file dialog was not expected");
    }
    std::optional<std::filesystem::path> saveFile(std::string_view,
                                                  const std::filesystem::path&) override {
        throw Broken("a file dialog was not expected");
    }
    std::optional<PrintFont> chooseFont(const PrintFont&) override {
        throw Broken("a font dialog was not expected");
    }
    bool passwordWindow(std::string_view, const SubmitPassword& submit) override {
        constexpr int mostEntries = 4;
        for (int entries = 0; entries < mostEntries; ++entries)
            if (submit(entry, [](std::string_view) {}) == PasswordStep::Close) return true;
        throw Broken("a password window does not close");
    }
};

/// What the password windows work on.
struct Bench {
    GradeSheet sheet;
    WorkingState state;
    FakeMainWindow window;
    PasswordTyper dialogs;
    MemoryFiles files;
    UnusedPrinter printer;
    UnusedCanvas canvas;
    UnusedClock clock;
    FakeShell shell;
    Ports ports{dialogs, files, printer, canvas, clock, shell};
    CommandContext context{sheet, state, window, ports};

    Bench() {
        state.places.passwordFile = passwordFile;
        state.places.localData = "/user/local";
    }
};

bool opens(Bench& bench, const std::string& entry) {
    bench.dialogs.entry = entry;
    return frmPW(bench.context);
}

}  // namespace

void tryPassword(std::span<const std::byte> bytes) {
    Bench bench;
    bench.files.files[passwordFile] = Bytes(bytes.begin(), bytes.end());
    const std::string stored = textOf(RecordReader(bytes).taggedValue());
    require(opens(bench, stored), "the password is refused");
    require(opens(bench, stored + "x") == stored.empty(), "a wrong password is taken");

    // Only who knows it may change it. Where there is none, the entry becomes the password.
    bench.dialogs.entry = stored + "y";
    mnuEditPassword(bench.context);
    const std::string kept = stored.empty() ? "y" : stored;
    require(opens(bench, kept), "the password was lost");
    require(!opens(bench, kept + "z"), "a wrong password is taken after a change");
}

}  // namespace quorvel::fuzz
