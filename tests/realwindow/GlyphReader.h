#pragma once

#include <filesystem>
#include <vector>

#include "core/ports/Canvas.h"
#include "tests/realwindow/Picture.h"

namespace quorvel::scenario {

/// Recognises the program's glyphs by their pixels.
class GlyphReader {
  public:
    /// Loads the bitmaps of a program folder. Throws ScenarioError when one is missing.
    GlyphReader(const std::filesystem::path& folder, CanvasSize size);

    /// The glyph at (x, y) of a canvas that is `left` and `top` pixels into what is shown;
    /// Driver::bareCanvas where only its ground is to be seen, else Driver::unknownGlyph.
    int glyphAt(const Picture& shown, int left, int top, Surface surface, int x, int y) const;

  private:
    std::vector<Picture> glyphs_;
    Picture gridGround_;
    Picture bottomGround_;
};

}  // namespace quorvel::scenario
