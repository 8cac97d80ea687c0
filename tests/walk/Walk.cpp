#include "tests/walk/Walk.h"

#include <algorithm>
#include <array>
#include <span>

#include "core/Numbers.h"
#include "storage/SheetFile.h"
#include "tests/scenario/FormEvents.h"
#include "tests/scenario/HeadlessControls.h"
#include "tests/scenario/Texts.h"
#include "tests/walk/Invariants.h"
#include "window/Menu.h"

namespace quorvel::walk {

namespace {

constexpr const char* programFolder = "/Quorvel";
constexpr const char* passwordFile = "/machine/password";

/// A sheet grows to more than the window shows at a time, and no further: steps stay cheap.
constexpr int enoughStudents = 24;
constexpr int enoughAssignments = 18;

/// What reads every cell and pixel is checked this often, and after every menu command.
constexpr int stepsBetweenThoroughChecks = 10;

/// Of the ends of the program that come up, so many come.
constexpr int percentOfEnds = 15;

/// The menu entries, more often chosen ones more often.
constexpr std::array entriesChosen{
    "mnuAddS",         "mnuAddS",           "mnuAddS",    "mnuEditS",
    "mnuEditS",        "mnuRemoveS",        "mnuAddA",    "mnuAddA",
    "mnuAddA",         "mnuEditA",          "mnuRemoveA", "mnuInputA",
    "mnuInputS",       "mnuSave",           "mnuSave",    "mnuSaveAs",
    "mnuOpen",         "mnuOpen",           "mnuNew",     "mnuPFile(1)",
    "mnuPFile(2)",     "mnuPFile(9)",       "mnuPrint",   "mnuEditGradesheetTitle",
    "mnuGradingScale", "mnuEditSchoolName", "mnuEditTN",  "mnuFont",
    "mnuEditPassword", "mnuCopy",           "mnuBackup1", "mnuBackup",
    "mnuHowToUse",     "mnuAbout",          "mnuExit",
};

/// Those that mark the sheet unsaved, whatever is then answered.
constexpr std::array marksUnsaved{
    "mnuAddS",    "mnuEditS",  "mnuRemoveS", "mnuAddA", "mnuEditA",
    "mnuRemoveA", "mnuInputA", "mnuInputS",  "mnuCopy", "mnuEditGradesheetTitle",
};

template <std::size_t count>
bool isAmong(const std::array<const char*, count>& names, std::string_view name) {
    return std::ranges::find(names, name) != names.end();
}

std::string inQuotes(std::string_view text) {
    return scenario::quoted(text, {});
}

}  // namespace

Walk::Walk(const RandomNumbers& choices, ScenarioLog& log)
    : random_(choices), log_(log), dialogs_(random_, log, files_, programFolder, passwordFile) {
    log_.begin();
    setUp();
}

void Walk::setUp() {
    const bool large = random_.chance(30);
    wantedStudents_ = large ? random_.between(18, enoughStudents) : random_.below(6);
    wantedAssignments_ = large ? random_.between(10, enoughAssignments) : random_.below(6);
    if (random_.chance(30)) {
        shell_.screen = {640, 480};
        log_.line("screen 640x480");
    }
    if (random_.chance(20)) {
        printer_.state = FakePrinter::State::None;
        log_.line("printer none");
    } else if (random_.chance(20)) {
        printer_.state = FakePrinter::State::Fails;
        log_.line("printer fails");
    }
}

void Walk::takeSteps(int count) {
    for (int taken = 0; taken < count; ++taken) {
        ++stepsTaken_;
        takeStep();
        if (!form_->hasEnded() && stepsTaken_ % stepsBetweenThoroughChecks == 0) checkThoroughly();
    }
    noteOutcome();
}

void Walk::takeChosenSteps() {
    do {
        takeStep();
        if (!form_->hasEnded()) checkThoroughly();
    } while (random_.bytesChoose());
    noteOutcome();
}

void Walk::takeStep() {
    if (form_ == nullptr || form_->hasEnded())
        start();
    else
        step();
    if (!form_->hasEnded()) check();
}

void Walk::start() {
    log_.line("start");
    const Ports ports{dialogs_, files_, printer_, canvas_, clock_, shell_};
    const Places places{.programFolder = programFolder,
                        .passwordFile = passwordFile,
                        .documents = "/user/Documents",
                        .localData = "/user/local",
                        .temporary = "/temporary"};
    form_ = std::make_unique<frmQRV>(ports, places, CodePage::windows1252());
    form_->start();
}

void Walk::act(const scenario::Action& action) {
    scenario::eventOf(action, *form_)(*form_);
}

void Walk::step() {
    if (isTyping() && random_.chance(60)) {
        if (random_.chance(60)) return typeSomething();
        return pressSomeKey();
    }
    const int choice = random_.below(100);
    if (choice < 40) return clickSomewhere();
    if (choice < 55) return moveSomeBar();
    if (choice < 58) return clickHeading();
    if (choice < 59 && random_.chance(percentOfEnds)) return closeTheWindow();
    if (choice < 60) return changeTheDisk();
    chooseRandomMenu();
}

void Walk::chooseRandomMenu() {
    std::string_view name = random_.oneOf(entriesChosen);
    // An end of the program is the end of the sheet, too: not before it has grown.
    if (name == "mnuExit" && !random_.chance(percentOfEnds)) name = "mnuAbout";
    if (form_->sheet().studentCount() < wantedStudents_ && random_.chance(30)) name = "mnuAddS";
    if (form_->sheet().assignmentCount() < wantedAssignments_ && random_.chance(30))
        name = "mnuAddA";
    if (name == "mnuAddS" && form_->sheet().studentCount() >= enoughStudents) name = "mnuRemoveS";
    if (name == "mnuAddA" && form_->sheet().assignmentCount() >= enoughAssignments)
        name = "mnuRemoveA";
    const MenuItem& item = menuItems()[static_cast<std::size_t>(menuItemIndex(name))];
    if (item.recentFile > 0 &&
        !form_->state().mnuPFile[static_cast<std::size_t>(item.recentFile) - 1].visible)
        name = "mnuAbout";
    chooseMenu(name);
}

void Walk::chooseMenu(std::string_view name) {
    log_.line("menu " + std::string(name));
    dialogs_.fileWasChosen = false;
    printer_.jobs.clear();
    act(scenario::ChooseMenu{std::string(name)});
    if (!form_->hasEnded()) checkAfter(name);
}

void Walk::clickSomewhere() {
    // Mostly where cells are; quarters of a pixel, since a point need not be a whole one.
    const Rectangle& canvas = form_->layout().gridCanvas;
    const Layout& layout = form_->layout();
    const int columns = std::max(1, form_->sheet().assignmentCount());
    const int rows = std::max(1, form_->sheet().studentCount());
    const int width = random_.chance(80) ? std::min(30 * columns, canvas.width) : canvas.width;
    const int height =
        random_.chance(80) ? std::min(14 * rows + 14, layout.hsbA.top) : layout.hsbA.top;
    clickCanvas(canvas.left + random_.below(4 * width) / 4.0, random_.below(4 * height) / 4.0);
}

void Walk::clickCanvas(double x, double y) {
    log_.line("click " + decimalText(x) + " " + decimalText(y));
    act(scenario::ClickPoint{x, y});
}

void Walk::clickHeading() {
    const std::string_view heading = random_.chance(50) ? "lblStudent" : "lblSN";
    log_.line("click " + std::string(heading));
    act(scenario::ClickControl{std::string(heading)});
}

void Walk::typeSomething() {
    const std::string typed = random_.chance(85) ? dialogs_.typedNumber() : dialogs_.typedText();
    log_.line("type " + inQuotes(typed));
    act(scenario::TypeText{typed});
}

void Walk::pressSomeKey() {
    constexpr std::array<std::string_view, 3> keys{"Enter", "Tab", "Escape"};
    const std::string_view key = random_.chance(60) ? keys[0] : random_.oneOf(keys);
    log_.line("key " + std::string(key));
    act(scenario::PressKey{std::string(key)});
}

void Walk::moveSomeBar() {
    constexpr std::array<std::string_view, 3> bars{"hsbA", "vsbA", "vsbS"};
    const std::string_view name = random_.oneOf(bars);
    const ScrollBar& bar = form_->controls().*scenario::scrollBarNamed(name);
    const int position = random_.between(bar.minimum(), bar.maximum());
    log_.line("scroll " + std::string(name) + " " + std::to_string(position));
    act(scenario::MoveScrollBar{std::string(name), position});
}

void Walk::closeTheWindow() {
    if (random_.chance(50)) {
        log_.line("close");
        act(scenario::CloseWindow{});
    } else {
        log_.line("session ends");
        act(scenario::EndSession{});
    }
    // On a full disk the user may go back to a sheet that nothing took.
    if (!form_->hasEnded() && !files_.full)
        throw Violation("the window is closed and the program goes on");
}

void Walk::changeTheDisk() {
    files_.full = !files_.full && random_.chance(30);
    log_.line(files_.full ? "disk full" : "disk ready");
}

void Walk::check() {
    if (!form_->isOpen()) throw Violation("the program goes on without a window");
    checkWindow(*form_);
}

void Walk::checkThoroughly() {
    checkCells(form_->sheet());
    checkFigures(*form_);
    checkRosterOrder(*form_);
    checkDisplay(*form_, canvas_);
}

void Walk::checkAfter(std::string_view menu) {
    const WorkingState& state = form_->state();
    if (isAmong(marksUnsaved, menu) && !state.isDirty)
        throw Violation(std::string(menu) + " left the sheet saved");
    checkThoroughly();

    const bool asksForFile =
        menu == "mnuSaveAs" || menu == "mnuOpen" || menu.starts_with("mnuPFile");
    const bool wasSavedOrLoaded = menu == "mnuSave" || (asksForFile && dialogs_.fileWasChosen);
    const bool isSaved = !state.isDirty && state.saveMode == SaveMode::Save;
    if (!wasSavedOrLoaded || !isSaved || state.currentPath.empty()) return;
    const SheetReading saved = readSheet(disk_, state.inProgramFolder(state.currentPath));
    if (saved.problem != FileProblem::None)
        throw Violation("a sheet that counts as saved has no file");
    checkSameSheet(saved.sheet, form_->sheet());
}

void Walk::noteOutcome() {
    if (form_->hasEnded()) {
        log_.line("expect window ended");
        return;
    }
    const GradeSheet& sheet = form_->sheet();
    log_.line("expect students " + std::to_string(sheet.studentCount()));
    log_.line("expect assignments " + std::to_string(sheet.assignmentCount()));
    log_.line("expect title " + inQuotes(sheet.sheetTitle));
    log_.line("expect txtS text " + inQuotes(form_->controls().txtS.text));
    log_.line(form_->state().isDirty ? "expect dirty yes" : "expect dirty no");
}

}  // namespace quorvel::walk
