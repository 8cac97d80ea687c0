#pragma once

#include "core/ports/Canvas.h"

namespace quorvel {

/// The glyph set of a row: one for each of the two alternating row backgrounds.
enum class GlyphSet { Plain, Double };

/// The distances from one score column, and from one student's row, to the next, in pixels.
inline constexpr int columnPitch = 30;
inline constexpr int rowPitch = 14;

/// Where the glyphs of the grid and of the figures beneath it stand on their canvases, in pixels.
namespace canvas_places {

/// Row bands that a refresh clears: the 20 student rows and two bands under them.
inline constexpr int clearedBands = 22;
/// Glyphs of a score, a column number or an average.
inline constexpr int scoreSlots = 3;

constexpr int slotLeft(int left, int slot) {
    return left + Canvas::glyphWidth * slot;
}
/// Columns and rows count from 0, as positions on screen.
constexpr int scoreLeft(int column) {
    return columnPitch * column + 3;
}
constexpr int rowTop(int row) {
    return rowPitch * row + 16;
}
inline constexpr int headingTop = 2;
/// Figures and letters stand on a line this far below the top of their glyph.
inline constexpr int glyphBaseline = 9;

/// Rows alternate as positions on screen, so the banding stays put while scrolling.
constexpr GlyphSet rowSet(int row) {
    return row % 2 == 1 ? GlyphSet::Plain : GlyphSet::Double;
}

/// The result columns; each moves right by the layout's rightColumnsShift.
inline constexpr int pointsEarnedLeft = 306;
inline constexpr int pointsPossibleLeft = 344;
inline constexpr int pointsSlots = 4;
inline constexpr int percentageLeft = 378;
inline constexpr int percentageWholeSlots = 3;
inline constexpr int highestWholePercentage = 999;
/// The decimal point and the tenth.
inline constexpr int percentageTenthSlots = 2;
inline constexpr int percentageSlots = percentageWholeSlots + percentageTenthSlots;
inline constexpr int letterGradeLeft = 420;

/// Places that every refresh clears although nothing is drawn there in the small layout; they do
/// not move with the result columns.
inline constexpr int unmovedBlanksLeft = 532;
inline constexpr int unmovedBlankSlots = 3;
inline constexpr int unmovedSingleBlankLeft = 570;

/// The three bands of the bottom canvas.
inline constexpr int averageScoreTop = 2;
inline constexpr GlyphSet averageScoreSet = GlyphSet::Double;
inline constexpr int averagePercentTop = 16;
inline constexpr GlyphSet averagePercentSet = GlyphSet::Plain;
inline constexpr int classAverageTop = 30;
inline constexpr GlyphSet classAverageSet = GlyphSet::Plain;
inline constexpr int classAverageLeft = 3;
inline constexpr int classLetterLeft = 51;

}  // namespace canvas_places

/// The indices of the glyph bitmaps.
namespace glyph {

inline constexpr int decimalPoint = 16;

constexpr int digit(int value, GlyphSet set) {
    return value + (set == GlyphSet::Plain ? 0 : 17);
}
/// `letter` is 'A' to 'F'.
constexpr int letter(char letter, GlyphSet set) {
    return letter - 'A' + (set == GlyphSet::Plain ? 10 : 29);
}
constexpr int blank(GlyphSet set) {
    return set == GlyphSet::Plain ? 27 : 28;
}

}  // namespace glyph

}  // namespace quorvel
