#include <cstdio>
#include <filesystem>
#include <future>
#include <iostream>

#include "platform/win32/ControlIds.h"
#include "tests/realwindow/WindowDriver.h"
#include "tests/scenario/User.h"

#include <fcntl.h>
#include <io.h>

namespace {

using namespace quorvel::scenario;

constexpr DWORD answerTimeout = 60'000;  // milliseconds
constexpr DWORD lookPause = 2;
constexpr const char* copyOfSheet = "Grades\\Recovered.qrv";

int passed = 0;
int failed = 0;

void check(const char* what, bool holds) {
    std::cout << what << (holds ? ": passed\n" : ": FAILED\n");
    ++(holds ? passed : failed);
}

/// Windows, which asks every program whether the session may end and then tells what came of it.
class SessionManager {
  public:
    /// Asks, and does not wait for the answer, which may take a person's.
    void ask() {
        window_ = FindWindowW(quorvel::control_id::mainWindowClass, nullptr);
        answer_ = std::async(std::launch::async, [window = window_] {
            DWORD_PTR result = 0;
            SendMessageTimeoutW(window, WM_QUERYENDSESSION, 0, 0, SMTO_NORMAL, answerTimeout,
                                &result);
            return result != 0;
        });
    }
    bool agrees() { return answer_.get(); }

    void tell(bool ends) const {
        DWORD_PTR result = 0;
        SendMessageTimeoutW(window_, WM_ENDSESSION, ends ? TRUE : FALSE, 0, SMTO_NORMAL,
                            answerTimeout, &result);
    }

  private:
    HWND window_ = nullptr;
    std::future<bool> answer_;
};

bool copyExists(const WindowDriver& driver) {
    return std::filesystem::exists(driver.resolve(copyOfSheet));
}

/// Waits for the question of the end of the session, over whatever else is open.
void waitForOffer(WindowDriver& driver) {
    const DWORD start = GetTickCount();
    while (GetTickCount() - start < answerTimeout) {
        const auto dialog = driver.openDialog();
        if (dialog && dialog->title == "Save Current Grade Sheet?") return;
        driver.forgetDialog();
        Sleep(lookPause);
    }
    throw ScenarioError("the sheet is not offered for saving");
}

/// The question must find the sheet in a safe place.
void answerOffer(WindowDriver& driver, quorvel::Answer button) {
    waitForOffer(driver);
    check("the sheet is on the disk while the question is open", copyExists(driver));
    driver.answer(pressed(button));
}

/// A sheet of two students and one assignment, unsaved.
void fillSheet(User& user) {
    user.choose("mnuAddS", {typed("Adams, Ann"), typed("Ann")});
    user.choose("mnuAddS", {typed("Baker, Bob"), typed("Bob")});
    user.choose("mnuAddA", {typed("Quiz"), typed("20")});
}

/// Another program keeps the session from ending: everything is as it was.
void tryVeto(WindowDriver& driver) {
    SessionManager session;
    session.ask();
    answerOffer(driver, quorvel::Answer::No);
    check("the program lets the session end", session.agrees());
    check("the copy goes when the answer is no", !copyExists(driver));
    session.tell(false);
    check("the window is still there when the session goes on", !driver.openDialog());
    check("and so is the sheet", driver.text("txtS") == "Adams, Ann\r\nBaker, Bob");
}

/// The same in the middle of a prompt sequence.
void tryVetoInASequence(WindowDriver& driver) {
    User user(driver);
    driver.act(ChooseMenu{"mnuInputA"});
    user.answer(typed("1"));
    user.answer(typed("17"));
    if (!driver.openDialog()) throw ScenarioError("the second student is not asked for");
    SessionManager session;
    session.ask();
    answerOffer(driver, quorvel::Answer::No);
    check("the program lets the session end inside a sequence", session.agrees());
    session.tell(false);
    driver.forgetDialog();
    const Dialog prompt = user.answer(typed("18"));
    check("the sequence goes on where it was",
          prompt.text.find("Student: Baker, Bob") != std::string::npos);
    check("and comes to its end", !driver.openDialog());
    check("with what was entered before", driver.text("txtS") == "Adams, Ann\r\nBaker, Bob");
}

void tryEnd(WindowDriver& driver) {
    SessionManager session;
    session.ask();
    answerOffer(driver, quorvel::Answer::No);
    check("the program lets the session end at last", session.agrees());
    session.tell(true);
    check("the end of the session ends the program",
          WaitForSingleObject(driver.process(), answerTimeout) == WAIT_OBJECT_0);
    check("and leaves no copy behind", !copyExists(driver));
}

/// Nobody answers, and the program is ended all the same.
void tryForcedEnd(WindowDriver& driver) {
    User user(driver);
    user.start();
    fillSheet(user);
    SessionManager session;
    session.ask();
    waitForOffer(driver);
    TerminateProcess(driver.process(), 0);
    WaitForSingleObject(driver.process(), answerTimeout);
    session.agrees();
    check("a forced end leaves the sheet as a copy", copyExists(driver));
}

int checkAll(const std::filesystem::path& program) {
    const Bench bench(program, {});
    WindowDriver driver(bench);
    User user(driver);
    user.start();
    fillSheet(user);
    tryVeto(driver);
    tryVetoInASequence(driver);
    tryEnd(driver);
    tryForcedEnd(driver);
    std::cout << passed << " passed, " << failed << " failed\n";
    return failed == 0 ? 0 : 1;
}

}  // namespace

int wmain(int argumentCount, wchar_t** arguments) {
    _setmode(_fileno(stdout), _O_BINARY);
    if (argumentCount != 2) {
        std::cerr << "usage: window_session_end PROGRAMFOLDER\n";
        return 2;
    }
    try {
        return checkAll(arguments[1]);
    } catch (const std::exception& error) {
        std::cout << "the end of the session: " << error.what() << ": FAILED\n"
                  << passed << " passed, " << failed + 1 << " failed\n";
        return 1;
    }
}
