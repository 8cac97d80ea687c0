#include "window/GridPainting.h"

#include <string>

#include "core/Grades.h"
#include "core/Numbers.h"
#include "window/CanvasPlaces.h"

namespace quorvel {

using namespace canvas_places;

namespace {

/// Nothing where there is no student, no assignment or no score.
std::string scoreText(const GridView& view, int row, int column) {
    if (row >= view.studentCount() || column >= view.assignmentCount()) return {};
    const CellPoints points =
        view.sheet.scores(view.firstAssignment + column).points(view.firstStudent + row);
    if (points.empty) return {};
    if (points.excused) return std::string(Score::excusedMark);
    // A fraction below one half, which entry keeps, is drawn as its whole part.
    return std::to_string(points.whole);
}

/// Whole digits right-aligned, then the decimal point and the tenth; both stay blank for a whole
/// percentage.
void placePercentage(GlyphCanvas& canvas, Surface surface, GlyphSet set, std::int64_t tenths, int x,
                     int y) {
    const std::string whole = std::to_string(tenths / 10);
    if (tenths < 0 || whole.size() > percentageWholeSlots) {
        canvas.placeText(surface, set, "......", x, y, percentageSlots);
        return;
    }
    const std::int64_t tenth = tenths % 10;
    canvas.placeText(surface, set, whole, x, y, percentageWholeSlots);
    canvas.placeText(surface, set, tenth == 0 ? "" : "." + std::to_string(tenth),
                     slotLeft(x, percentageWholeSlots), y, percentageTenthSlots);
}

/// The results of a row without a student. Under the rows of students letters and tenths never
/// stand.
void clearResults(GlyphCanvas& canvas, int row, int shift) {
    const GlyphSet set = rowSet(row);
    const int top = rowTop(row);
    canvas.placeBlanks(Surface::Grid, set, pointsEarnedLeft + shift, top, pointsSlots);
    canvas.placeBlanks(Surface::Grid, set, pointsPossibleLeft + shift, top, pointsSlots);
    canvas.placeBlanks(Surface::Grid, set, percentageLeft + shift, top, percentageWholeSlots);
    if (row >= visibleRows) return;
    canvas.placeBlanks(Surface::Grid, set, slotLeft(percentageLeft + shift, percentageWholeSlots),
                       top, percentageTenthSlots);
    canvas.placeBlanks(Surface::Grid, set, letterGradeLeft + shift, top, 1);
}

void drawResults(GlyphCanvas& canvas, int row, int shift, const StudentFigures& figures) {
    const GlyphSet set = rowSet(row);
    const int top = rowTop(row);
    canvas.placeText(Surface::Grid, set, std::to_string(figures.pointsEarned),
                     pointsEarnedLeft + shift, top, pointsSlots);
    canvas.placeText(Surface::Grid, set, std::to_string(figures.pointsPossible),
                     pointsPossibleLeft + shift, top, pointsSlots);
    placePercentage(canvas, Surface::Grid, set, figures.percentageTenths, percentageLeft + shift,
                    top);
    canvas.placeText(Surface::Grid, set, letterText(figures.letterGrade), letterGradeLeft + shift,
                     top, 1);
}

/// A figure in tenths, cut to a whole number.
std::string wholeText(const Decimal& tenths) {
    return tenths.scaledDown(1, 10).text();
}

void drawAssignmentAverages(const GridView& view, GlyphCanvas& canvas) {
    for (int column = 0; column < view.layout.visibleColumns; ++column) {
        std::string score;
        std::string percent;
        if (column < view.assignmentCount()) {
            if (const auto average = assignmentAverage(view.sheet, view.firstAssignment + column)) {
                score = wholeText(average->scoreTenths());
                if (const auto tenths = average->percentTenths()) percent = wholeText(*tenths);
            }
        }
        canvas.placeText(Surface::Bottom, averageScoreSet, score, scoreLeft(column),
                         averageScoreTop, scoreSlots);
        canvas.placeText(Surface::Bottom, averagePercentSet, percent, scoreLeft(column),
                         averagePercentTop, scoreSlots);
    }
}

void drawClassAverage(GlyphCanvas& canvas, const ClassAverage& average) {
    placePercentage(canvas, Surface::Bottom, classAverageSet, average.tenths, classAverageLeft,
                    classAverageTop);
    canvas.placeText(Surface::Bottom, classAverageSet, letterText(average.letterGrade),
                     classLetterLeft, classAverageTop, 1);
}

}  // namespace

void drawUnmovedBlanks(GlyphCanvas& canvas) {
    for (int band = 0; band < clearedBands; ++band) {
        const GlyphSet set = rowSet(band);
        const int top = rowTop(band);
        canvas.placeBlanks(Surface::Grid, set, unmovedBlanksLeft, top, unmovedBlankSlots);
        canvas.placeBlanks(Surface::Grid, set, unmovedSingleBlankLeft, top, 1);
    }
}

void drawColumnNumbers(const GridView& view, GlyphCanvas& canvas) {
    for (int column = 0; column < view.layout.visibleColumns; ++column) {
        const bool isShown = column < view.assignmentCount();
        canvas.placeText(Surface::Grid, GlyphSet::Plain,
                         isShown ? std::to_string(view.firstAssignment + column) : "",
                         scoreLeft(column), headingTop, scoreSlots);
    }
}

void drawScores(const GridView& view, GlyphCanvas& canvas) {
    for (int row = 0; row < clearedBands; ++row)
        for (int column = 0; column < view.layout.visibleColumns; ++column)
            canvas.placeText(Surface::Grid, rowSet(row), scoreText(view, row, column),
                             scoreLeft(column), rowTop(row), scoreSlots);
}

void drawClassFigures(const GridView& view, GlyphCanvas& canvas) {
    const int shift = view.layout.rightColumnsShift;
    for (int row = 0; row < clearedBands; ++row) {
        if (row < view.studentCount())
            drawResults(canvas, row, shift, view.sheet.figures(view.firstStudent + row));
        else
            clearResults(canvas, row, shift);
    }
    drawAssignmentAverages(view, canvas);
    if (const auto& average = view.sheet.classAverage()) drawClassAverage(canvas, *average);
}

}  // namespace quorvel
