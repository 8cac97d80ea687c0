#include <algorithm>
#include <array>

#include "core/Numbers.h"
#include "window/Keys.h"
#include "window/frmQRV.h"

namespace quorvel {

namespace {

/// The clickable area and its mapping to cells, in client pixels.
constexpr int areaLeft = 150;
constexpr int areaTop = 14;
constexpr int areaRightBase = 140;
/// Once there are more assignments than visible columns, only this many columns take clicks.
constexpr int columnsInWideSheets = 10;
/// The canvas begins this many column pitches from the window's left edge.
constexpr int columnsLeftOfCanvas = areaLeft / columnPitch;

/// With Control held these keys go from the open cell to the next one.
struct NeighbourKey {
    int keyCode;
    int studentsOn;
    int assignmentsOn;
};

constexpr std::array neighbourKeys{
    NeighbourKey{key::up, -1, 0},
    NeighbourKey{key::down, 1, 0},
    NeighbourKey{key::left, 0, -1},
    NeighbourKey{key::right, 0, 1},
};

/// Whether the bar's window shows the entry of this number.
bool inSight(int number, const ScrollBar& bar, int shown) {
    return number >= bar.position() && number < bar.position() + shown;
}

void bringIntoSight(int number, ScrollBar& bar, int shown) {
    if (inSight(number, bar, shown)) return;
    bar.moveTo(number < bar.position() ? number : number - shown + 1);
}

}  // namespace

void frmQRV::Form_MouseDown(double x, double y) {
    hideEditor();
    if (hitsCell(x, y)) openClickedCell(x, y);
    RefreshGrid();
}

bool frmQRV::hitsCell(double x, double y) const {
    const int students = sheet_.studentCount();
    const int assignments = sheet_.assignmentCount();
    if (assignments == 0 || students == 0) return false;
    const int shownColumns =
        assignments > layout_.visibleColumns ? columnsInWideSheets : assignments;
    const int shownRows = std::min(students, visibleRows);
    return x >= areaLeft && y >= areaTop &&
           x < columnPitch * shownColumns + areaRightBase + layout_.rightColumnsShift &&
           y < rowPitch * shownRows + areaTop;
}

void frmQRV::openClickedCell(double x, double y) {
    const int column = static_cast<int>(roundHalfEven(x)) / columnPitch;
    const int row = static_cast<int>(roundHalfEven(y)) / rowPitch;
    openEditor(row - 1 + firstVisibleStudent(),
               column - columnsLeftOfCanvas + firstVisibleAssignment());
}

/// The cell that was open last where it can still be seen, else the first one in sight.
void frmQRV::openCellByKey() {
    const int student = state_.currentStudent;
    const int assignment = state_.currentAssignment;
    const bool goesOn = hasCell(student, assignment) &&
                        inSight(student, controls_.vsbS, visibleRows) &&
                        inSight(assignment, controls_.hsbA, layout_.visibleColumns);
    openEditor(goesOn ? student : firstVisibleStudent(),
               goesOn ? assignment : firstVisibleAssignment());
    RefreshGrid();
}

/// Stores the entry and opens the cell so far away from it, scrolled into sight. At the sheet's
/// edge the entry goes on.
void frmQRV::openNeighbour(int studentsOn, int assignmentsOn) {
    const int student = state_.currentStudent + studentsOn;
    const int assignment = state_.currentAssignment + assignmentsOn;
    if (!hasCell(student, assignment)) return;
    hideEditor();
    bringIntoSight(student, controls_.vsbS, visibleRows);
    bringIntoSight(assignment, controls_.hsbA, layout_.visibleColumns);
    openEditor(student, assignment);
    RefreshGrid();
}

bool frmQRV::hasCell(int student, int assignment) const {
    return student >= 1 && student <= sheet_.studentCount() && assignment >= 1 &&
           assignment <= sheet_.assignmentCount();
}

/// Opens the editor over a cell that can be seen. Without such a cell nothing happens.
void frmQRV::openEditor(int student, int assignment) {
    if (!hasCell(student, assignment)) return;
    state_.currentAssignment = static_cast<std::int16_t>(assignment);
    state_.currentStudent = static_cast<std::int16_t>(student);
    CellEditor& txtEnter = controls_.txtEnter;
    txtEnter.left = columnPitch * (assignment - firstVisibleAssignment() + columnsLeftOfCanvas);
    txtEnter.top = rowPitch * (student - firstVisibleStudent() + 1);
    txtEnter.visible = true;
    txtEnter.text = sheet_.score(assignment, student).text();
    ++txtEnter.openings;
    txtEnter_GotFocus();
}

void frmQRV::txtEnter_GotFocus() {
    controls_.txtEnter.selectionStart = 0;
    controls_.txtEnter.selectionLength = controls_.txtEnter.text.size();
}

void frmQRV::txtEnter_Change(std::string_view text) {
    CellEditor& txtEnter = controls_.txtEnter;
    txtEnter.text = text.substr(0, longestEntry);
    txtEnter.selectionStart = txtEnter.text.size();
    txtEnter.selectionLength = 0;
}

bool frmQRV::txtEnter_KeyDown(int keyCode, bool controlHeld) {
    if (keyCode == key::enter || keyCode == key::tab) {
        hideEditor();
        return true;
    }
    const auto neighbour = std::ranges::find(neighbourKeys, keyCode, &NeighbourKey::keyCode);
    if (!controlHeld || neighbour == neighbourKeys.end()) return false;
    openNeighbour(neighbour->studentsOn, neighbour->assignmentsOn);
    return true;
}

void frmQRV::hideEditor() {
    if (!controls_.txtEnter.visible) return;
    controls_.txtEnter.visible = false;
    txtEnter_LostFocus();
}

void frmQRV::txtEnter_LostFocus() {
    state_.isDirty = true;
    std::string& text = controls_.txtEnter.text;
    const Score score = scoreFromEntry(text, *state_.codePage);
    text = score.text();
    sheet_.setScore(state_.currentAssignment, state_.currentStudent, score);
    RefreshGrid();
}

}  // namespace quorvel
