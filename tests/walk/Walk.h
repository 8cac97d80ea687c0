#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "tests/fakes/FakeClock.h"
#include "tests/fakes/FakePrinter.h"
#include "tests/fakes/FakeShell.h"
#include "tests/fakes/FaultyFiles.h"
#include "tests/fakes/MemoryFiles.h"
#include "tests/scenario/Scenario.h"
#include "tests/walk/GlyphRecord.h"
#include "tests/walk/RandomDialogs.h"
#include "window/frmQRV.h"

namespace quorvel::walk {

/// One program in a folder of its own and a user who does whatever comes to mind. After every step
/// it is checked what must hold; Violation is thrown where it does not.
class Walk {
  public:
    /// `choices` decide everything. `log` must outlive the walk.
    Walk(const RandomNumbers& choices, ScenarioLog& log);

    void takeSteps(int count);
    /// Takes steps as long as bytes choose them, with all checks after each.
    void takeChosenSteps();

  private:
    void takeStep();
    void setUp();
    void start();

    // What the user does.
    void act(const scenario::Action& action);
    void step();
    void chooseMenu(std::string_view name);
    void chooseRandomMenu();
    void clickSomewhere();
    void clickHeading();
    void clickCanvas(double x, double y);
    void typeSomething();
    void pressSomeKey();
    void moveSomeBar();
    void closeTheWindow();
    void changeTheDisk();

    void check();
    void checkThoroughly();
    void checkAfter(std::string_view menu);
    void noteOutcome();

    const CellEditor& txtEnter() const { return form_->controls().txtEnter; }
    bool isTyping() const { return txtEnter().visible; }

    RandomNumbers random_;
    ScenarioLog& log_;
    MemoryFiles disk_;
    FaultyFiles files_{disk_};
    FakePrinter printer_;
    GlyphRecord canvas_;
    FakeClock clock_;
    FakeShell shell_;
    RandomDialogs dialogs_;
    std::unique_ptr<frmQRV> form_;
    /// How large the sheet is to become soon.
    int wantedStudents_ = 0;
    int wantedAssignments_ = 0;
    int stepsTaken_ = 0;
};

}  // namespace quorvel::walk
