#include "window/Layout.h"

#include <algorithm>

namespace quorvel {

namespace {

constexpr int twipsPerPixel = 15;
constexpr int wideWindowWidth = 11220 / twipsPerPixel;
constexpr int wideWindowHeight = 8415 / twipsPerPixel;
constexpr ScreenSize smallScreen{640, 480};

constexpr int scrollBarWidth = 17;
constexpr int headingHeight = 14;
constexpr int numberColumnWidth = 24;
constexpr int nameColumnWidth = 109;
constexpr int canvasLeft = scrollBarWidth + numberColumnWidth + nameColumnWidth;
constexpr int shownCanvasHeight = 295;
constexpr int footHeight = 42;
constexpr int footTop = shownCanvasHeight + scrollBarWidth;
constexpr int footLabelWidth = 148;
constexpr int listTop = footTop + footHeight;
constexpr int listHeadingHeight = 17;
constexpr int listNumberWidth = 36;
constexpr int listNameWidth = 287;
constexpr int listIndent = 10;  // names stand this far from the numbers before them
constexpr int listValueWidth = 50;
constexpr int fewestListLines = 3;

void placeRoster(Layout& layout) {
    constexpr int height = visibleRows * rowPitch;
    constexpr int namesLeft = scrollBarWidth + numberColumnWidth;
    layout.lblSN = {scrollBarWidth, 0, numberColumnWidth, headingHeight};
    layout.lblStudent = {namesLeft, 0, nameColumnWidth, headingHeight};
    layout.vsbS = {0, headingHeight, scrollBarWidth, height};
    layout.txtSN = {scrollBarWidth, headingHeight, numberColumnWidth, height};
    layout.txtS = {namesLeft, headingHeight, nameColumnWidth, height};
    layout.rowTextHeight = rowPitch;
}

void placeCanvases(Layout& layout, int canvasWidth) {
    layout.gridCanvas = {canvasLeft, 0, canvasWidth, shownCanvasHeight};
    layout.hsbA = {canvasLeft, shownCanvasHeight, canvasWidth, scrollBarWidth};
    layout.bottomCanvas = {canvasLeft, footTop, canvasWidth, footHeight};
    layout.lblAvgScore = {0, footTop, footLabelWidth, rowPitch};
    layout.Label1 = {0, footTop + rowPitch, footLabelWidth, rowPitch};
    layout.lblClassAvg = {0, footTop + 2 * rowPitch, footLabelWidth, rowPitch};
}

void placeAssignmentList(Layout& layout, int linesHeight) {
    constexpr int linesTop = listTop + listHeadingHeight;
    constexpr int nameLeft = scrollBarWidth + listNumberWidth;
    constexpr int valueLeft = nameLeft + listNameWidth;
    layout.vsbA = {0, listTop, scrollBarWidth, listHeadingHeight + linesHeight};
    layout.lblA1 = {scrollBarWidth, listTop, listNumberWidth + listIndent, listHeadingHeight};
    layout.lblA2 = {nameLeft + listIndent, listTop, listNameWidth - listIndent, listHeadingHeight};
    layout.lblAV = {valueLeft, listTop, listValueWidth, listHeadingHeight};
    layout.lblAN = {scrollBarWidth, linesTop, listNumberWidth, linesHeight};
    layout.listIndent = listIndent;
    layout.txtA = {nameLeft, linesTop, listNameWidth, linesHeight};
    layout.txtAV = {valueLeft, linesTop, listValueWidth, linesHeight};
}

/// As many lines of the assignment list as fit.
int fittingLines(int wanted, int lineHeight, int clientHeight) {
    const int room = clientHeight - listTop - listHeadingHeight;
    return std::clamp(room / lineHeight, fewestListLines, wanted);
}

Layout smallLayout(int clientHeight) {
    constexpr int canvasWidth = 438;
    Layout layout;
    layout.small = true;
    layout.visibleColumns = 10;
    // Five lines in what is left under the bottom canvas need a slightly smaller letter.
    layout.listTextHeight = 12;
    layout.listLines = fittingLines(5, layout.listTextHeight, clientHeight);
    placeRoster(layout);
    placeCanvases(layout, canvasWidth);
    placeAssignmentList(layout, layout.listLines * layout.listTextHeight);
    layout.clientWidth = canvasLeft + canvasWidth + 2;
    layout.clientHeight = layout.vsbA.top + layout.vsbA.height;
    layout.windowWidth = layout.clientWidth;
    layout.windowHeight = layout.clientHeight;
    return layout;
}

Layout wideLayout(int clientHeight) {
    constexpr int canvasWidth = 588;
    constexpr int spaceBelowLines = 4;
    Layout layout;
    layout.extraColumns = 5;
    layout.rightColumnsShift = columnPitch * layout.extraColumns;
    layout.visibleColumns = 10 + layout.extraColumns;
    layout.listTextHeight = rowPitch;
    layout.listLines = fittingLines(5 + layout.extraColumns, layout.listTextHeight,
                                    clientHeight - spaceBelowLines);
    placeRoster(layout);
    placeCanvases(layout, canvasWidth);
    placeAssignmentList(layout, layout.listLines * layout.listTextHeight + spaceBelowLines);
    layout.clientWidth = canvasLeft + canvasWidth + 2;
    layout.clientHeight = layout.vsbA.top + layout.vsbA.height;
    layout.windowWidth = wideWindowWidth;
    layout.windowHeight = std::min(wideWindowHeight, clientHeight);
    return layout;
}

}  // namespace

int rowTextTop(int ascent) {
    constexpr int glyphTop = canvas_places::rowTop(0) - headingHeight;
    return std::max(0, glyphTop + canvas_places::glyphBaseline - ascent);
}

Layout layoutFor(ScreenSize screen, int clientHeight) {
    return screen == smallScreen ? smallLayout(clientHeight) : wideLayout(clientHeight);
}

}  // namespace quorvel
