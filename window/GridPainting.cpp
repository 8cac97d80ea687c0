#include "window/GridPainting.h"

#include <array>
#include <optional>

#include "core/Grades.h"
#include "core/Numbers.h"
#include "window/CanvasPlaces.h"

namespace quorvel {

using namespace canvas_places;

namespace {

void placeScore(GlyphCanvas& canvas, GlyphSet set, const CellPoints& points, int x, int y) {
    if (points.empty)
        canvas.placeBlanks(Surface::Grid, set, x, y, scoreSlots);
    else if (points.excused)
        canvas.placeText(Surface::Grid, set, Score::excusedMark, x, y, scoreSlots);
    else  // a fraction below one half, which entry keeps, is drawn as its whole part
        canvas.placeNumber(Surface::Grid, set, points.whole, x, y, scoreSlots);
}

/// Whole digits right-aligned, then the decimal point and the tenth; both stay blank for a whole
/// percentage.
void placePercentage(GlyphCanvas& canvas, Surface surface, GlyphSet set, std::int64_t tenths, int x,
                     int y) {
    if (tenths < 0 || tenths / 10 > highestWholePercentage) {
        canvas.placeText(surface, set, "......", x, y, percentageSlots);
        return;
    }
    const std::int64_t tenth = tenths % 10;
    const int tenthLeft = slotLeft(x, percentageWholeSlots);
    canvas.placeNumber(surface, set, tenths / 10, x, y, percentageWholeSlots);
    if (tenth == 0) {
        canvas.placeBlanks(surface, set, tenthLeft, y, percentageTenthSlots);
    } else {
        const std::array text{'.', static_cast<char>('0' + tenth)};
        canvas.placeText(surface, set, {text.data(), text.size()}, tenthLeft, y,
                         percentageTenthSlots);
    }
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
    canvas.placeNumber(Surface::Grid, set, figures.pointsEarned, pointsEarnedLeft + shift, top,
                       pointsSlots);
    canvas.placeNumber(Surface::Grid, set, figures.pointsPossible, pointsPossibleLeft + shift, top,
                       pointsSlots);
    placePercentage(canvas, Surface::Grid, set, figures.percentageTenths, percentageLeft + shift,
                    top);
    canvas.placeText(Surface::Grid, set, letterText(figures.letterGrade), letterGradeLeft + shift,
                     top, 1);
}

/// A figure in tenths, cut to a whole number; blanks where there is none.
void placeAverage(GlyphCanvas& canvas, GlyphSet set, const std::optional<Decimal>& tenths, int x,
                  int y) {
    if (tenths)
        canvas.placeNumber(Surface::Bottom, set, tenths->scaledDown(1, 10).toInteger(), x, y,
                           scoreSlots);
    else
        canvas.placeBlanks(Surface::Bottom, set, x, y, scoreSlots);
}

void drawAssignmentAverages(const GridView& view, GlyphCanvas& canvas) {
    for (int column = 0; column < view.layout.visibleColumns; ++column) {
        std::optional<Decimal> score;
        std::optional<Decimal> percent;
        if (column < view.assignmentCount()) {
            if (const auto average = assignmentAverage(view.sheet, view.firstAssignment + column)) {
                score = average->scoreTenths();
                percent = average->percentTenths();
            }
        }
        placeAverage(canvas, averageScoreSet, score, scoreLeft(column), averageScoreTop);
        placeAverage(canvas, averagePercentSet, percent, scoreLeft(column), averagePercentTop);
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
        if (column < view.assignmentCount())
            canvas.placeNumber(Surface::Grid, GlyphSet::Plain, view.firstAssignment + column,
                               scoreLeft(column), headingTop, scoreSlots);
        else
            canvas.placeBlanks(Surface::Grid, GlyphSet::Plain, scoreLeft(column), headingTop,
                               scoreSlots);
    }
}

void drawScores(const GridView& view, GlyphCanvas& canvas) {
    for (int column = 0; column < view.layout.visibleColumns; ++column) {
        const int left = scoreLeft(column);
        const int students = column < view.assignmentCount() ? view.studentCount() : 0;
        if (students > 0) {
            const ScoreColumn& scores = view.sheet.scores(view.firstAssignment + column);
            for (int row = 0; row < students; ++row)
                placeScore(canvas, rowSet(row), scores.points(view.firstStudent + row), left,
                           rowTop(row));
        }
        for (int row = students; row < clearedBands; ++row)
            canvas.placeBlanks(Surface::Grid, rowSet(row), left, rowTop(row), scoreSlots);
    }
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
