#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/GradeSheet.h"
#include "core/WorkingState.h"
#include "core/ports/Canvas.h"
#include "tests/scenario/Scenario.h"

namespace quorvel::scenario {

/// A print job as it came out of the printer.
struct PrintedJob {
    /// The lines of each page without blanks at their ends, in the code page.
    std::vector<std::vector<std::string>> pages;
    std::optional<PrintFont> font;  // nothing where it cannot be seen
    std::optional<bool> landscape;
};

struct FileCopy {
    std::string from;  // texts in the code page, folders separated by backslashes
    std::string to;
};

/// Range and position of a scroll bar, as the program means them.
struct BarState {
    int minimum = 0;
    int maximum = 0;
    int position = 0;
};

/// One way to run a scenario: a program in its own folder, an empty one when the driver is made.
///
/// The runner waits for the program by calling openDialog() after every action, until nothing is
/// open. What a driver cannot do (false) or see (nothing) here is counted and left to another run;
/// when it cannot be done, so is all that follows. A ScenarioError fails the line.
class Driver {
  public:
    virtual ~Driver() = default;

    /// The program's folder as the program writes it, without a backslash at its end.
    virtual std::string programFolderText() const = 0;
    /// Where a path that a scenario names lies: in the program's folder unless it is absolute.
    virtual std::filesystem::path resolve(std::string_view path) const = 0;

    /// Changes what is around the program. A file in its place is no driver's own: the runner puts
    /// it there.
    virtual bool set(const Setting& setting) = 0;

    /// Does what the user does. Returns when the program has begun to carry it out; it may be
    /// waiting in a dialog then.
    virtual bool act(const Action& action) = 0;

    /// Waits until the program has opened a dialog or has finished the action (or ended), and says
    /// which dialog is open. Asked again before it was answered, the same one is.
    virtual std::optional<Dialog> openDialog() = 0;
    /// Answers the dialog that openDialog() gave; a path in `reply.text` is as the scenario names
    /// it.
    virtual void answer(const Reply& reply) = 0;

    // What the program shows. Controls and menu entries go by their names.
    virtual bool hasEnded() = 0;
    virtual std::optional<std::string> windowCaption() = 0;
    virtual std::optional<std::string> text(std::string_view control) = 0;
    virtual std::optional<std::uint32_t> colour(std::string_view control) = 0;
    virtual std::optional<bool> visible(std::string_view control) = 0;
    virtual std::optional<bool> focused(std::string_view control) = 0;
    virtual std::optional<ClickPoint> position(std::string_view control) = 0;
    virtual std::optional<std::string> selectedText(std::string_view control) = 0;
    virtual std::optional<BarState> scrollBar(std::string_view bar) = 0;

    /// No glyph: the bare background of the canvas; a place that shows something else.
    static constexpr int bareCanvas = -1;
    static constexpr int unknownGlyph = -2;
    /// The glyph (0 to 34) whose upper left corner is at pixel (x, y) of the canvas.
    virtual std::optional<int> glyphAt(Surface surface, int x, int y) = 0;
    /// Columns of scores and the shift of the result columns on this screen.
    virtual int visibleColumns() = 0;
    virtual int rightColumnsShift() = 0;

    /// The bytes of a file on the disk, whoever has it open; nothing where there is none.
    virtual std::optional<std::vector<std::byte>> contentOf(std::string_view path) = 0;

    /// The jobs printed since the driver was made, in order. Waits for one that is on its way.
    virtual std::optional<std::vector<PrintedJob>> printedJobs() = 0;
    /// The copies asked for and the command lines started since the last start.
    virtual std::optional<std::vector<FileCopy>> copies() = 0;
    virtual std::optional<std::vector<std::string>> launches() = 0;

    // What only a run inside the program can see: null elsewhere.
    virtual const GradeSheet* sheet() { return nullptr; }
    virtual const WorkingState* state() { return nullptr; }
};

}  // namespace quorvel::scenario
