#pragma once

#include "window/GlyphCanvas.h"
#include "window/GridView.h"

namespace quorvel {

// Each of these places glyphs; the canvas shows them when it is told to finish.

/// Blanks where the results of a class of any size can stand.
void clearResultColumns(const Layout& layout, GlyphCanvas& canvas);
/// Blanks where there is no assignment.
void drawColumnNumbers(const GridView& view, GlyphCanvas& canvas);
/// Blanks where there is no score.
void drawScores(const GridView& view, GlyphCanvas& canvas);

/// The results of the students on screen, the averages of the assignments on screen and the class
/// average, from the figures as last computed. Without a class average its place stays as it was.
void drawClassFigures(const GridView& view, GlyphCanvas& canvas);

}  // namespace quorvel
