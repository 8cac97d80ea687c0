#pragma once

#include "window/GlyphCanvas.h"
#include "window/GridView.h"

namespace quorvel {

// Each of these places glyphs; the canvas shows them when it is told to finish.

/// The places that are cleared although, in the small layout, nothing is drawn there.
void drawUnmovedBlanks(GlyphCanvas& canvas);
/// Blanks where there is no assignment.
void drawColumnNumbers(const GridView& view, GlyphCanvas& canvas);
/// Blanks where there is no score.
void drawScores(const GridView& view, GlyphCanvas& canvas);

/// The results of the students on screen, the averages of the assignments on screen and the class
/// average, from the figures as last computed. Without a class average its place stays as it was.
void drawClassFigures(const GridView& view, GlyphCanvas& canvas);

}  // namespace quorvel
