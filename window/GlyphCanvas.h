#pragma once

#include <cstdint>
#include <map>
#include <utility>

#include "core/ports/Canvas.h"

namespace quorvel {

/// The glyph set of a row: one for each of the two alternating row backgrounds.
enum class GlyphSet { Plain, Double };

/// The canvases with a memory of what each place shows, so that a refresh copies only the glyphs
/// that differ. The memory is forgotten whenever the canvases are loaded anew.
class GlyphCanvas {
  public:
    explicit GlyphCanvas(Canvas& canvas) : canvas_(canvas) {}

  private:
    Canvas& canvas_;
};

}  // namespace quorvel
