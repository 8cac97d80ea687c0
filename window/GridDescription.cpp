#include "window/GridDescription.h"

#include <array>

#include "core/Grades.h"
#include "core/Numbers.h"
#include "window/CanvasPlaces.h"

namespace quorvel {

namespace {

using namespace canvas_places;

struct ResultColumn {
    std::string_view name;
    int left;
    int slots;
    std::string (*text)(const StudentFigures& figures);
};

constexpr std::array resultColumns{
    ResultColumn{
        "points earned", pointsEarnedLeft, pointsSlots,
        [](const StudentFigures& figures) { return std::to_string(figures.pointsEarned); }},
    ResultColumn{
        "points possible", pointsPossibleLeft, pointsSlots,
        [](const StudentFigures& figures) { return std::to_string(figures.pointsPossible); }},
    ResultColumn{
        "percentage", percentageLeft, percentageSlots,
        [](const StudentFigures& figures) { return tenthsText(figures.percentageTenths) + "%"; }},
    ResultColumn{"grade", letterGradeLeft, 1,
                 [](const StudentFigures& figures) { return letterText(figures.letterGrade); }},
};
constexpr int resultCount = resultColumns.size();

std::string scoreInWords(const Score& score, std::int16_t value) {
    if (score.isEmpty()) return "no score";
    if (score.isExcused()) return "excused";
    return score.text() + " of " + std::to_string(value);
}

/// A name, what it is, and how it stands: "Adams, Ann, grade: B".
std::string inWords(std::string_view name, std::string_view what, std::string_view value) {
    std::string words(name);
    words.append(", ").append(what).append(": ").append(value);
    return words;
}

bool holds(const Rectangle& place, int x, int y) {
    return x >= place.left && x < place.left + place.width && y >= place.top &&
           y < place.top + place.height;
}

Rectangle inBand(const Rectangle& canvas, int left, int width, int glyphTop) {
    return {canvas.left + left, canvas.top + glyphTop - 2, width, rowPitch};
}

}  // namespace

int GridDescription::rowLength() const {
    return form_.view().assignmentCount() + resultCount;
}

int GridDescription::assignmentFigures() const {
    return 2 * form_.view().assignmentCount();
}

int GridDescription::count() const {
    const int classFigures = form_.sheet().classAverage() ? 2 : 0;
    return form_.view().studentCount() * rowLength() + assignmentFigures() + classFigures;
}

DescribedPlace GridDescription::at(int number) const {
    int place = number - 1;
    const int inRows = form_.view().studentCount() * rowLength();
    if (place < inRows) return inRow(place / rowLength(), place % rowLength());
    place -= inRows;
    if (place < assignmentFigures()) return underColumn(place / 2, place % 2 == 1);
    return classFigure(place > assignmentFigures());
}

DescribedPlace GridDescription::inRow(int row, int column) const {
    const GridView view = form_.view();
    if (column >= view.assignmentCount()) return result(row, column - view.assignmentCount());
    const int assignment = view.firstAssignment + column;
    const Score score = view.sheet.score(assignment, view.firstStudent + row);
    return {inWords(nameInRow(row), view.sheet.assignmentName(assignment),
                    scoreInWords(score, view.sheet.assignmentValue(assignment))),
            score.text(),
            inBand(view.layout.gridCanvas, columnPitch * column, columnPitch, rowTop(row))};
}

DescribedPlace GridDescription::result(int row, int result) const {
    const GridView view = form_.view();
    const ResultColumn& column = resultColumns[static_cast<std::size_t>(result)];
    std::string text = column.text(view.sheet.figures(view.firstStudent + row));
    std::string name = inWords(nameInRow(row), column.name, text);
    return {std::move(name), std::move(text),
            inBand(view.layout.gridCanvas, column.left + view.layout.rightColumnsShift,
                   column.slots * Canvas::glyphWidth, rowTop(row))};
}

DescribedPlace GridDescription::underColumn(int column, bool asPercent) const {
    const GridView view = form_.view();
    const int assignment = view.firstAssignment + column;
    std::string text;
    if (const auto average = assignmentAverage(view.sheet, assignment)) {
        const auto tenths = asPercent ? average->percentTenths() : average->scoreTenths();
        if (tenths) text = tenths->scaledDown(1, 10).text();
        if (tenths && asPercent) text += '%';
    }
    return {inWords(view.sheet.assignmentName(assignment),
                    asPercent ? "average percent" : "average score", text.empty() ? "none" : text),
            text,
            inBand(view.layout.bottomCanvas, columnPitch * column, columnPitch,
                   asPercent ? averagePercentTop : averageScoreTop)};
}

DescribedPlace GridDescription::classFigure(bool asLetter) const {
    const ClassAverage& average = *form_.sheet().classAverage();
    const Rectangle& canvas = form_.layout().bottomCanvas;
    if (asLetter) {
        const std::string letter = letterText(average.letterGrade);
        return {"Class grade: " + letter, letter,
                inBand(canvas, classLetterLeft, Canvas::glyphWidth, classAverageTop)};
    }
    const std::string percentage = tenthsText(average.tenths) + "%";
    return {
        "Class average: " + percentage, percentage,
        inBand(canvas, classAverageLeft, percentageSlots * Canvas::glyphWidth, classAverageTop)};
}

/// As the window shows it: an alias hides a name from everybody.
std::string_view GridDescription::nameInRow(int row) const {
    const GridView view = form_.view();
    const int student = view.firstStudent + row;
    return form_.showsAliases() ? view.sheet.studentAlias(student)
                                : view.sheet.studentName(student);
}

int GridDescription::numberAt(int x, int y) const {
    for (int number = 1; number <= count(); ++number)
        if (holds(at(number).place, x, y)) return number;
    return 0;
}

int GridDescription::editedNumber() const {
    if (!form_.controls().txtEnter.visible) return 0;
    const GridView view = form_.view();
    const int row = form_.state().currentStudent - view.firstStudent;
    const int column = form_.state().currentAssignment - view.firstAssignment;
    return row * rowLength() + column + 1;
}

std::string editorName(const frmQRV& form) {
    if (!form.controls().txtEnter.visible) return {};
    const GradeSheet& sheet = form.sheet();
    const int student = form.state().currentStudent;
    std::string name =
        form.showsAliases() ? sheet.studentAlias(student) : sheet.studentName(student);
    return name.append(", ").append(sheet.assignmentName(form.state().currentAssignment));
}

}  // namespace quorvel
