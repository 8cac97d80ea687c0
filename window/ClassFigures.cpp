#include <cstdlib>
#include <string>

#include "core/Grades.h"
#include "core/Numbers.h"
#include "window/CanvasPlaces.h"
#include "window/frmQRV.h"

namespace quorvel {

namespace {

std::string letterText(LetterGrade grade) {
    return {static_cast<char>(grade)};
}

/// Whole digits right-aligned, then the decimal point and the tenth; both stay blank for a whole
/// percentage. The decimal point's bitmap exists on the plain background only, so its slot keeps
/// that background in every row, like a ruled column.
void placePercentage(GlyphCanvas& canvas, Surface surface, GlyphSet set, std::int64_t tenths, int x,
                     int y) {
    using namespace canvas_places;
    const std::string whole = std::to_string(tenths / 10);
    if (tenths < 0 || whole.size() > percentageWholeSlots) {
        canvas.placeText(surface, set, "......", x, y, percentageSlots);
        return;
    }
    const std::int64_t tenth = tenths % 10;
    canvas.placeText(surface, set, whole, x, y, percentageWholeSlots);
    canvas.placeText(surface, GlyphSet::Plain, tenth == 0 ? " " : ".",
                     slotLeft(x, percentageWholeSlots), y, 1);
    canvas.placeText(surface, set, tenth == 0 ? " " : std::to_string(tenth),
                     slotLeft(x, percentageWholeSlots + 1), y, 1);
}

/// A figure in tenths, cut to a whole number.
std::string wholeText(const Decimal& tenths) {
    return tenths.scaledDown(1, 10).text();
}

}  // namespace

void frmQRV::drawClassFigures() {
    sheet_.recomputeFigures(state_.gradingScale);
    for (int row = 0; row < visibleRows; ++row) drawResults(row);
    showRanks();
    drawAssignmentAverages();
    drawClassAverage();
    canvas_.finish();
}

void frmQRV::drawResults(int row) {
    using namespace canvas_places;
    const GlyphSet set = rowSet(row);
    const int top = rowTop(row);
    const int shift = layout_.rightColumnsShift;
    if (row >= visibleStudents()) {
        // The places that the clearing of the canvas leaves out.
        canvas_.placeText(Surface::Grid, GlyphSet::Plain, "",
                          slotLeft(percentageLeft + shift, percentageWholeSlots), top, 1);
        canvas_.placeText(Surface::Grid, set, "",
                          slotLeft(percentageLeft + shift, percentageWholeSlots + 1), top, 1);
        canvas_.placeText(Surface::Grid, set, "", letterGradeLeft + shift, top, 1);
        canvas_.placeBlanks(Surface::Grid, set, percentageLeft + shift, top, percentageWholeSlots);
        return;
    }
    const StudentFigures& figures = sheet_.figures(firstVisibleStudent_ + row);
    canvas_.placeText(Surface::Grid, set, std::to_string(figures.pointsEarned),
                      pointsEarnedLeft + shift, top, pointsSlots);
    canvas_.placeText(Surface::Grid, set, std::to_string(figures.pointsPossible),
                      pointsPossibleLeft + shift, top, pointsSlots);
    placePercentage(canvas_, Surface::Grid, set, figures.percentageTenths, percentageLeft + shift,
                    top);
    canvas_.placeText(Surface::Grid, set, letterText(figures.letterGrade), letterGradeLeft + shift,
                      top, 1);
}

void frmQRV::showRanks() {
    if (controls_.lblSN.caption != "SR") return;
    std::string& text = controls_.txtSN.text;
    text.clear();
    for (int row = 0; row < visibleStudents(); ++row) {
        if (row > 0) text += "\r\n";
        text += std::to_string(sheet_.figures(firstVisibleStudent_ + row).rank);
    }
}

void frmQRV::drawAssignmentAverages() {
    using namespace canvas_places;
    for (int column = 0; column < layout_.visibleColumns; ++column) {
        std::string score;
        std::string percent;
        if (column < visibleAssignments()) {
            if (const auto average = assignmentAverage(sheet_, firstVisibleAssignment_ + column)) {
                score = wholeText(average->scoreTenths());
                if (const auto tenths = average->percentTenths()) percent = wholeText(*tenths);
            }
        }
        canvas_.placeText(Surface::Bottom, averageScoreSet, score, scoreLeft(column),
                          averageScoreTop, scoreSlots);
        canvas_.placeText(Surface::Bottom, averagePercentSet, percent, scoreLeft(column),
                          averagePercentTop, scoreSlots);
    }
}

void frmQRV::drawClassAverage() {
    using namespace canvas_places;
    const auto& average = sheet_.classAverage();
    if (!average) return;
    controls_.lblClassAvg.caption = "Class Average: " + tenthsText(average->tenths) + "%";
    placePercentage(canvas_, Surface::Bottom, classAverageSet, average->tenths, classAverageLeft,
                    classAverageTop);
    canvas_.placeText(Surface::Bottom, classAverageSet, letterText(average->letterGrade),
                      classLetterLeft, classAverageTop, 1);
}

}  // namespace quorvel
