#include <string>
#include <string_view>
#include <utility>

#include "core/Numbers.h"
#include "window/GridPainting.h"
#include "window/GridTexts.h"
#include "window/frmQRV.h"

namespace quorvel {

namespace {

constexpr std::string_view studentNameHeading = "Student Name";
constexpr std::string_view studentAliasHeading = "Student Alias";
constexpr std::string_view rowNumberHeading = "#";
constexpr std::string_view rankHeading = "SR";

/// A heading over what its column usually shows, or over the other.
Label headingLabel(bool usual, std::string_view usualCaption, std::string_view otherCaption) {
    return {std::string(usual ? usualCaption : otherCaption),
            usual ? Ground::Heading : Ground::ChangedHeading};
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
    drawUnmovedBlanks(canvas_);
    showHeadings();
    showNames();
    showRowNumbers();
    showAssignmentList();
    drawColumnNumbers(view(), canvas_);
    drawScores(view(), canvas_);
    showClassFigures();
}

void frmQRV::setScrollRanges() {
    // A range that moves a position raises that bar's change handler and so a refresh inside this
    // one. Both end with the same picture, since each sets the ranges first.
    controls_.hsbA.setMaximum(sheet_.assignmentCount());
    controls_.vsbA.setMaximum(sheet_.assignmentCount());
    controls_.vsbS.setMaximum(sheet_.studentCount());
    setScrollRange(controls_.hsbA, sheet_.assignmentCount(), layout_.visibleColumns);
    setScrollRange(controls_.vsbA, sheet_.assignmentCount(), layout_.listLines);
    setScrollRange(controls_.vsbS, sheet_.studentCount(), visibleRows);
}

void frmQRV::showHeadings() {
    controls_.lblStudent =
        headingLabel(nameColumn_ == NameColumn::Names, studentNameHeading, studentAliasHeading);
    controls_.lblSN =
        headingLabel(numberColumn_ == NumberColumn::RowNumbers, rowNumberHeading, rankHeading);
}

void frmQRV::showNames() {
    controls_.txtS.text = showsAliases() ? aliasLines(view()) : nameLines(view());
}

void frmQRV::showRowNumbers() {
    if (numberColumn_ == NumberColumn::RowNumbers) controls_.txtSN.text = rowNumberLines(view());
}

void frmQRV::showAssignmentList() {
    AssignmentLines lines = assignmentLines(sheet_, firstListedAssignment(), layout_.listLines);
    controls_.lblAN.caption = std::move(lines.numbers);
    controls_.txtA.text = std::move(lines.names);
    controls_.txtAV.text = std::move(lines.values);
}

void frmQRV::showClassFigures() {
    sheet_.recomputeFigures(state_.gradingScale);
    if (numberColumn_ == NumberColumn::Ranks) controls_.txtSN.text = rankLines(view());
    if (const auto& average = sheet_.classAverage())
        controls_.lblClassAvg.caption = "Class Average: " + tenthsText(average->tenths) + "%";
    drawClassFigures(view(), canvas_);
    canvas_.finish();
}

}  // namespace quorvel
