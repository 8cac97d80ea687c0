#include <algorithm>
#include <cmath>

#include "core/Numbers.h"
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

}  // namespace

void frmQRV::Form_MouseDown(double x, double y) {
    hideEditor();
    if (hitsCell(x, y)) openEditor(x, y);
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

void frmQRV::openEditor(double x, double y) {
    const int column = static_cast<int>(roundHalfEven(x)) / columnPitch;
    const int row = static_cast<int>(roundHalfEven(y)) / rowPitch;
    const int assignment = column - columnsLeftOfCanvas + firstVisibleAssignment();
    const int student = row - 1 + firstVisibleStudent();
    if (assignment < 1 || assignment > sheet_.assignmentCount()) return;
    if (student < 1 || student > sheet_.studentCount()) return;

    state_.currentAssignment = static_cast<std::int16_t>(assignment);
    state_.currentStudent = static_cast<std::int16_t>(student);
    CellEditor& txtEnter = controls_.txtEnter;
    txtEnter.left = columnPitch * column;
    txtEnter.top = rowPitch * row;
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

void frmQRV::txtEnter_KeyDown(int keyCode) {
    if (keyCode == enterKey) hideEditor();
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
