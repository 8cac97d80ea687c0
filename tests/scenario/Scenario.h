#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "core/PrintFont.h"
#include "core/TaggedValue.h"
#include "core/ports/Dialogs.h"
#include "core/ports/Shell.h"
#include "window/CanvasPlaces.h"

/// What a user does and what the program must then show, one step a line. Texts are those of the
/// file with their escapes resolved; a leading `*\` still stands for the program's folder.
namespace quorvel::scenario {

/// A line that cannot be read, or that cannot be carried out.
class ScenarioError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// A line of a scenario file that is no step.
class SyntaxError : public ScenarioError {
  public:
    SyntaxError(int line, const std::string& reason) : ScenarioError(reason), line_(line) {}
    int line() const { return line_; }

  private:
    int line_;
};

/// One function out of one for each kind, for std::visit.
template <typename... Functions>
struct ForEachKind : Functions... {
    using Functions::operator()...;
};
template <typename... Functions>
ForEachKind(Functions...) -> ForEachKind<Functions...>;

// What is set up around the program.

/// The screen of a scenario that names none.
inline constexpr ScreenSize defaultScreen{1024, 768};

struct SetScreen {
    ScreenSize size;
};
/// An empty text is a password file of 0 bytes.
struct StorePassword {
    std::string password;
};
/// Copies a file beside the scenario into place; while the program runs, another program does.
struct PlaceFile {
    std::string path;
    std::string fixture;
};
enum class PrinterState { Ready, None, Fails };
struct SetPrinter {
    PrinterState state = PrinterState::Ready;
};
struct SetDisk {
    bool full = false;
};
/// What a program that has a file open leaves to others.
enum class FileSharing {
    Nothing,
    Contents,  // reading and writing, but not removal
};
/// Another program opens a file and keeps it open.
struct OpenElsewhere {
    std::string path;
    FileSharing sharing = FileSharing::Nothing;
};
/// It closes the file.
struct CloseElsewhere {
    std::string path;
};
using Setting = std::variant<SetScreen, StorePassword, PlaceFile, SetPrinter, SetDisk,
                             OpenElsewhere, CloseElsewhere>;

// What the user does.

struct Start {};
struct ChooseMenu {
    std::string entry;  // such as "mnuAddS" or "mnuPFile(1)"
};
struct ClickPoint {
    double x = 0;  // client pixels
    double y = 0;
};
struct ClickControl {
    std::string control;
};
struct TypeText {
    std::string text;
};
struct PressKey {
    std::string key;  // "Enter", "Escape", "Tab" or one character
};
struct MoveScrollBar {
    std::string bar;
    int position = 0;
};
struct CloseWindow {};
struct EndSession {};
using Action = std::variant<Start, ChooseMenu, ClickPoint, ClickControl, TypeText, PressKey,
                            MoveScrollBar, CloseWindow, EndSession>;

// The dialogs that an action opens, and how each is answered.

enum class DialogKind { Prompt, Message, OpenFile, SaveFile, Font, Password };

/// A dialog as the user sees it. What a kind does not have stays empty.
struct Dialog {
    DialogKind kind = DialogKind::Message;
    std::string title;  // the window's caption; empty for a font dialog
    std::string text;   // the question of a prompt, the text of a message
    std::string defaultAnswer;
    Icon icon = Icon::None;
    Buttons buttons = Buttons::Ok;

    bool operator==(const Dialog&) const = default;
};

/// How the user answers. A cancelled prompt or file dialog is cancelled by its Cancel button, a
/// password window by its close box.
struct Reply {
    bool cancelled = false;
    Answer button = Answer::Ok;  // of a message
    std::string text;            // of a prompt or password window; the path of a file dialog
    PrintFont font;
};

struct DialogStep {
    Dialog expected;
    Reply reply;
};

// What the program must show.

struct Count {
    enum class Of { Students, Assignments, PrintedPages } of = Of::Students;
    int count = 0;
};
struct SheetTitle {
    std::string title;
};
struct StudentIs {
    int student = 0;
    std::string name;
    std::string alias;
};
struct AssignmentIs {
    int assignment = 0;
    std::string name;
    int value = 0;
};
struct CellIs {
    enum class Kind { Empty, Number, Text };
    int assignment = 0;
    int student = 0;
    Kind kind = Kind::Empty;
    std::string value;  // a number's decimal text, or the text
};
/// Only the figures that are given are compared.
struct FiguresAre {
    int student = 0;
    std::optional<int> earned;
    std::optional<int> possible;
    std::optional<std::string> percentage;
    std::optional<std::string> grade;
    std::optional<int> rank;
};
/// Nothing where no class average was ever computed.
struct AverageIs {
    std::optional<std::string> average;
    std::string grade;
};
struct DirtyIs {
    bool dirty = false;
};
struct CurrentPathIs {
    std::string path;
};

struct WindowCaption {
    std::string caption;
};
struct WindowEnded {};
struct ControlText {
    std::string control;
    std::string text;
};
struct ControlColour {
    std::string control;
    std::uint32_t colour = 0;  // 0xRRGGBB
};
struct BarRange {
    std::string bar;
    int minimum = 0;
    int maximum = 0;
};
struct BarPosition {
    std::string bar;
    int position = 0;
};
struct ControlVisible {
    std::string control;
    bool visible = false;
};
struct ControlAt {
    std::string control;
    int left = 0;  // client pixels
    int top = 0;
};
struct ControlFocused {
    std::string control;
};
struct SelectedText {
    std::string control;
    std::string text;
};

// Rows and columns are places on screen, from 1.
struct ScoreGlyphs {
    int row = 0;
    int column = 0;
    std::string glyphs;
};
struct RowGlyphSet {
    int row = 0;
    GlyphSet set = GlyphSet::Plain;
};
struct HeadingGlyphs {
    int column = 0;
    std::string glyphs;
};
/// Only the results that are given are compared.
struct ResultGlyphs {
    int row = 0;
    std::optional<std::string> earned;
    std::optional<std::string> possible;
    std::optional<std::string> percentage;
    std::optional<std::string> grade;
};
struct FootGlyphs {
    enum class Line { Score, Percent } line = Line::Score;
    int column = 0;
    std::string glyphs;
};
struct FootClassGlyphs {
    std::string average;
    std::string grade;
};

struct FolderExists {
    std::string path;
};
struct FileMissing {
    std::string path;
};
struct FileRecordCount {
    std::string path;
    int records = 0;
};
struct FileBytes {
    std::string path;
    std::size_t offset = 0;
    std::vector<std::byte> bytes;
};
struct FileRecord {
    enum class Kind { Text, Integer, Tagged };
    std::string path;
    int record = 0;  // from 1
    Kind kind = Kind::Text;
    TaggedValue value;  // a text or a 16-bit number where the record is not tagged
};

struct PrintedFile {
    std::string file;  // beside the scenario
};
struct PrintedLine {
    int page = 0;  // pages and lines count from 1
    int line = 0;
    std::string text;
};
struct PrintedContains {
    std::string text;
};
struct PrintedFont {
    std::string name;
    float size = 0;  // points
};
struct PrintedLandscape {};
struct PrintedNothing {};

struct Copied {
    std::string from;
    std::string to;
};
struct CopiedNothing {};
struct Launched {
    std::string commandLine;  // the program's folder may stand inside, too
};

using Expectation =
    std::variant<Count, SheetTitle, StudentIs, AssignmentIs, CellIs, FiguresAre, AverageIs, DirtyIs,
                 CurrentPathIs, WindowCaption, WindowEnded, ControlText, ControlColour, BarRange,
                 BarPosition, ControlVisible, ControlAt, ControlFocused, SelectedText, ScoreGlyphs,
                 RowGlyphSet, HeadingGlyphs, ResultGlyphs, FootGlyphs, FootClassGlyphs,
                 FolderExists, FileMissing, FileRecordCount, FileBytes, FileRecord, PrintedFile,
                 PrintedLine, PrintedContains, PrintedFont, PrintedLandscape, PrintedNothing,
                 Copied, CopiedNothing, Launched>;

struct ExpectationStep {
    int line = 0;
    std::string source;  // the line as written, without its indent
    Expectation expectation;
};

/// What stands indented under an action, in order.
struct FollowUp {
    int line = 0;
    std::string source;
    std::variant<DialogStep, Expectation> content;
};

struct SettingStep {
    int line = 0;
    std::string source;
    Setting setting;
};

struct ActionStep {
    int line = 0;
    std::string source;
    Action action;
    std::vector<FollowUp> followUps;
};

using Step = std::variant<SettingStep, ActionStep, ExpectationStep>;

struct Scenario {
    std::vector<Step> steps;

    /// The screen and the printer that a run must offer at its first start.
    ScreenSize screen() const;
    PrinterState printer() const;
};

int lineOf(const Step& step);

/// The steps of a scenario file, which is UTF-8. Throws SyntaxError.
Scenario parseScenario(std::string_view text);

}  // namespace quorvel::scenario
