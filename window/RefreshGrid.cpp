#include <algorithm>
#include <string>

#include "core/Numbers.h"
#include "window/CanvasPlaces.h"
#include "window/frmQRV.h"

namespace quorvel {

namespace {

constexpr std::string_view lineBreak = "\r\n";

/// The hidden box that full names pass through before they are shown.
constexpr std::size_t txtTruncateSLength = 15;

/// Appends a line; the first one stands alone.
void addLine(std::string& text, bool first, std::string_view line) {
    if (!first) text += lineBreak;
    text += line;
}

/// A range that has `count` entries, `shown` of them at a time: its last position shows the last
/// entry in the last place.
void setScrollRange(ScrollBar& bar, int count, int shown) {
    bar.setMinimum(count == 0 ? 0 : 1);
    if (count > 1 && count <= shown) bar.setMaximum(1);
    if (count > shown) bar.setMaximum(count - shown + 1);
}

}  // namespace

void frmQRV::RefreshGrid() {
    setScrollRanges();
    clearCanvas();
    showNames();
    showRowNumbers();
    showAssignmentList();
    drawColumnNumbers();
    drawScores();
    drawClassFigures();
}

void frmQRV::setScrollRanges() {
    // A range that moves a position raises that bar's change handler and so a refresh inside this
    // one. Both end with the same picture, since each reads the positions again behind its ranges.
    controls_.hsbA.setMaximum(sheet_.assignmentCount());
    controls_.vsbA.setMaximum(sheet_.assignmentCount());
    controls_.vsbS.setMaximum(sheet_.studentCount());
    setScrollRange(controls_.hsbA, sheet_.assignmentCount(), layout_.visibleColumns);
    setScrollRange(controls_.vsbA, sheet_.assignmentCount(), layout_.listLines);
    setScrollRange(controls_.vsbS, sheet_.studentCount(), visibleRows);
    firstVisibleStudent_ = static_cast<std::int16_t>(controls_.vsbS.position());
    firstVisibleAssignment_ = static_cast<std::int16_t>(controls_.hsbA.position());
}

int frmQRV::visibleStudents() const {
    if (firstVisibleStudent_ == 0) return 0;
    return std::clamp(sheet_.studentCount() - firstVisibleStudent_ + 1, 0, visibleRows);
}

int frmQRV::visibleAssignments() const {
    if (firstVisibleAssignment_ == 0) return 0;
    return std::clamp(sheet_.assignmentCount() - firstVisibleAssignment_ + 1, 0,
                      layout_.visibleColumns);
}

void frmQRV::clearCanvas() {
    using namespace canvas_places;
    const int shift = layout_.rightColumnsShift;
    for (int column = 0; column < layout_.visibleColumns; ++column)
        canvas_.placeBlanks(Surface::Grid, GlyphSet::Plain, scoreLeft(column), headingTop,
                            scoreSlots);
    for (int band = 0; band < clearedBands; ++band) {
        const GlyphSet set = rowSet(band);
        const int top = rowTop(band);
        for (int column = 0; column < layout_.visibleColumns; ++column)
            canvas_.placeBlanks(Surface::Grid, set, scoreLeft(column), top, scoreSlots);
        canvas_.placeBlanks(Surface::Grid, set, pointsEarnedLeft + shift, top, pointsSlots);
        canvas_.placeBlanks(Surface::Grid, set, pointsPossibleLeft + shift, top, pointsSlots);
        canvas_.placeBlanks(Surface::Grid, set, percentageLeft + shift, top, percentageWholeSlots);
        canvas_.placeBlanks(Surface::Grid, set, unmovedBlanksLeft, top, unmovedBlankSlots);
        canvas_.placeBlanks(Surface::Grid, set, unmovedSingleBlankLeft, top, 1);
    }
}

void frmQRV::showNames() {
    std::string& text = controls_.txtS.text;
    text.clear();
    for (int row = 0; row < visibleStudents(); ++row) {
        const int student = firstVisibleStudent_ + row;
        addLine(text, row == 0,
                showsAliases()
                    ? std::string_view(sheet_.studentAlias(student))
                    : std::string_view(sheet_.studentName(student)).substr(0, txtTruncateSLength));
    }
}

void frmQRV::showRowNumbers() {
    if (controls_.lblSN.caption != "#") return;
    std::string& text = controls_.txtSN.text;
    text.clear();
    for (int row = 0; row < std::min(sheet_.studentCount(), visibleRows); ++row)
        addLine(text, row == 0, std::to_string(controls_.vsbS.position() + row));
}

void frmQRV::showAssignmentList() {
    std::string& numbers = controls_.lblAN.caption;
    std::string& names = controls_.txtA.text;
    std::string& values = controls_.txtAV.text;
    numbers.clear();
    names.clear();
    values.clear();
    const int first = firstListedAssignment_;
    if (first == 0 || first > sheet_.assignmentCount() || sheet_.assignmentName(first).empty())
        return;
    const int last = std::min(first + layout_.listLines - 1, sheet_.assignmentCount());
    for (int assignment = first; assignment <= last; ++assignment) {
        addLine(numbers, assignment == first, std::string("#").append(std::to_string(assignment)));
        addLine(names, assignment == first, sheet_.assignmentName(assignment));
        addLine(values, assignment == first, std::to_string(sheet_.assignmentValue(assignment)));
    }
}

void frmQRV::drawColumnNumbers() {
    using namespace canvas_places;
    for (int column = 0; column < visibleAssignments(); ++column)
        canvas_.placeText(Surface::Grid, GlyphSet::Plain,
                          std::to_string(firstVisibleAssignment_ + column), scoreLeft(column),
                          headingTop, scoreSlots);
}

void frmQRV::drawScores() {
    for (int row = 0; row < visibleStudents(); ++row)
        for (int column = 0; column < visibleAssignments(); ++column)
            drawScore(row, column, firstVisibleStudent_ + row, firstVisibleAssignment_ + column);
}

void frmQRV::drawScore(int row, int column, int student, int assignment) {
    using namespace canvas_places;
    const Score score = sheet_.score(assignment, student);
    if (score.isEmpty()) return;
    // A fraction below one half, which entry keeps, is drawn as its whole part.
    const std::string text =
        score.isExcused() ? score.text() : std::to_string(score.reading().toInteger());
    canvas_.placeText(Surface::Grid, rowSet(row), text, scoreLeft(column), rowTop(row), scoreSlots);
}

}  // namespace quorvel
