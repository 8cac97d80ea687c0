#pragma once

#include <climits>

#include "core/ports/Shell.h"
#include "window/CanvasPlaces.h"

namespace quorvel {

/// A place in the window's client area, in pixels.
struct Rectangle {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
};

/// Where everything stands in the window. Pixels throughout.
struct Layout {
    bool small = false;  // a screen of exactly 640 x 480
    int extraColumns = 0;
    int rightColumnsShift = 0;
    int visibleColumns = 0;
    int listLines = 0;

    int clientWidth = 0;
    int clientHeight = 0;
    int windowWidth =
        0;  // with frame and menu; grown where a frame leaves less than the client area
    int windowHeight = 0;

    Rectangle lblSN, lblStudent, vsbS, txtSN, txtS;
    Rectangle gridCanvas, hsbA, bottomCanvas;
    Rectangle lblAvgScore, Label1, lblClassAvg;
    Rectangle lblA1, lblA2, lblAV, lblAN, txtA, txtAV, vsbA;
    int listIndent = 0;      // of what txtA and txtAV hold, from the side that it is aligned to
    int rowTextHeight = 0;   // cell height of the font of txtSN and txtS
    int listTextHeight = 0;  // of lblAN, txtA and txtAV
};

inline constexpr int visibleRows = 20;

/// Where the window's client area can have no more than `clientHeight`, the assignment list gives
/// up lines, down to three.
Layout layoutFor(ScreenSize screen, int clientHeight = INT_MAX);

/// How far below the top of its row a text has to begin to stand on one line with the figures, if
/// its font has this ascent. Pixels.
int rowTextTop(int ascent);

}  // namespace quorvel
