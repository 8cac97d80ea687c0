#include <cstdio>
#include <filesystem>
#include <iostream>

#include "platform/win32/ControlIds.h"
#include "platform/win32/Handles.h"
#include "platform/win32/Texts.h"
#include "tests/realwindow/WindowDriver.h"
#include "tests/scenario/User.h"

#include <fcntl.h>
#include <io.h>
#include <oleacc.h>

namespace {

using namespace quorvel::scenario;
using quorvel::UniqueInterface;

int passed = 0;
int failed = 0;

void checkText(const char* what, const std::string& came, const std::string& expected) {
    const bool same = came == expected;
    std::cout << what << ": \"" << came << (same ? "\": passed\n" : "\": FAILED\n");
    if (!same) std::cout << "  expected: \"" << expected << "\"\n";
    ++(same ? passed : failed);
}

void checkNumber(const char* what, LONG came, LONG expected) {
    checkText(what, std::to_string(came), std::to_string(expected));
}

VARIANT childNumber(LONG number) {
    VARIANT child{};
    child.vt = VT_I4;
    child.lVal = number;
    return child;
}

/// What the window tells about itself to another process.
class Reader {
  public:
    explicit Reader(HWND window) {
        void* object = nullptr;
        if (FAILED(AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT),
                                              IID_IAccessible, &object)))
            throw ScenarioError("the window has no accessible object");
        object_.reset(static_cast<IAccessible*>(object));
    }

    std::string name(LONG child) const { return text(child, &IAccessible::get_accName); }
    std::string value(LONG child) const { return text(child, &IAccessible::get_accValue); }
    LONG count() const {
        LONG number = 0;
        object_->get_accChildCount(&number);
        return number;
    }
    LONG role(LONG child) const {
        VARIANT role{};
        object_->get_accRole(childNumber(child), &role);
        return role.lVal;
    }
    LONG state(LONG child) const {
        VARIANT state{};
        object_->get_accState(childNumber(child), &state);
        return state.lVal;
    }
    LONG focus() const {
        VARIANT child{};
        object_->get_accFocus(&child);
        return child.vt == VT_I4 ? child.lVal : 0;
    }
    RECT place(LONG child) const {
        LONG left = 0;
        LONG top = 0;
        LONG width = 0;
        LONG height = 0;
        object_->accLocation(&left, &top, &width, &height, childNumber(child));
        return {left, top, left + width, top + height};
    }
    LONG at(LONG left, LONG top) const {
        VARIANT child{};
        object_->accHitTest(left, top, &child);
        return child.vt == VT_I4 ? child.lVal : 0;
    }
    void act(LONG child) const { object_->accDoDefaultAction(childNumber(child)); }

  private:
    using Getter = HRESULT (STDMETHODCALLTYPE IAccessible::*)(VARIANT, BSTR*);

    std::string text(LONG child, Getter getter) const {
        BSTR text = nullptr;
        (object_.get()->*getter)(childNumber(child), &text);
        if (text == nullptr) return {};
        std::string result = quorvel::fromWide(text, quorvel::CodePage::windows1252());
        SysFreeString(text);
        return result;
    }

    UniqueInterface<IAccessible> object_;
};

/// A class of two students and one assignment. Its places: a score and four results for each
/// student, two averages of the assignment, two figures of the class.
void readTheWindow(User& user) {
    user.choose("mnuAddS", {typed("Alvarez, Sof\355a"), typed("Sofi")});
    user.choose("mnuAddS", {typed("Baker, Bob"), typed("Bob")});
    user.choose("mnuAddA", {typed("Quiz 1"), typed("20")});
    const HWND window = FindWindowW(quorvel::control_id::mainWindowClass, nullptr);
    const Reader reader(window);
    checkNumber("the role of the window", reader.role(CHILDID_SELF), ROLE_SYSTEM_TABLE);
    checkNumber("the role of a cell", reader.role(1), ROLE_SYSTEM_CELL);
    checkText("a new cell", reader.name(1), "Alvarez, Sof\355a, Quiz 1: 0 of 20");

    reader.act(1);
    user.finish();
    checkNumber("the cell that is edited has the focus", reader.focus(), 1);
    checkNumber("and is selected", reader.state(1) & STATE_SYSTEM_SELECTED, STATE_SYSTEM_SELECTED);
    const Reader editor(GetDlgItem(window, quorvel::control_id::txtEnter));
    checkText("the editor", editor.name(CHILDID_SELF), "Alvarez, Sof\355a, Quiz 1");
    user.enter("18");
    checkNumber("nothing has the focus behind the entry", reader.focus(), 0);
    checkText("the new score", reader.name(1), "Alvarez, Sof\355a, Quiz 1: 18 of 20");
    checkText("its value", reader.value(1), "18");
    checkText("the points", reader.name(2), "Alvarez, Sof\355a, points earned: 18");
    checkText("the percentage", reader.name(4), "Alvarez, Sof\355a, percentage: 90%");
    checkText("the grade", reader.name(5), "Alvarez, Sof\355a, grade: B");
    checkText("the other student", reader.name(6), "Baker, Bob, Quiz 1: 0 of 20");
    checkText("the assignment's average", reader.name(11), "Quiz 1, average score: 9");
    checkText("the class average", reader.name(13), "Class average: 45%");

    POINT corner{150, 14};
    ClientToScreen(window, &corner);
    checkNumber("a cell's left edge on the screen", reader.place(1).left, corner.x);
    checkNumber("a cell's top edge", reader.place(1).top, corner.y);
    checkNumber("the cell under a place on the screen", reader.at(corner.x + 5, corner.y + 20), 6);

    user.act(ClickControl{"lblStudent"});
    checkText("an alias hides the name", reader.name(1), "Sofi, Quiz 1: 18 of 20");
    const Reader names(GetDlgItem(window, quorvel::control_id::txtS));
    checkText("the names are known by their heading", names.name(CHILDID_SELF), "Student Alias");
    const Reader values(GetDlgItem(window, quorvel::control_id::txtAV));
    checkText("and the values by theirs", values.name(CHILDID_SELF), "Value");
}

int readAll(const std::filesystem::path& program) {
    const quorvel::ObjectApartment apartment;
    const Bench bench(program, {});
    WindowDriver driver(bench);
    User user(driver);
    user.start();
    readTheWindow(user);
    std::cout << passed << " passed, " << failed << " failed\n";
    return failed == 0 ? 0 : 1;
}

}  // namespace

int wmain(int argumentCount, wchar_t** arguments) {
    _setmode(_fileno(stdout), _O_BINARY);
    if (argumentCount != 2) {
        std::cerr << "usage: window_screen_reader PROGRAMFOLDER\n";
        return 2;
    }
    try {
        return readAll(arguments[1]);
    } catch (const std::exception& error) {
        std::cout << "reading the window: " << error.what() << ": FAILED\n"
                  << passed << " passed, " << failed + 1 << " failed\n";
        return 1;
    }
}
