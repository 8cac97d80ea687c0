#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/ports/Canvas.h"

namespace quorvel::walk {

/// Canvases that only know which glyph was last copied to a place. Cheap enough for walks of any
/// length; what overlaps it does not see.
class GlyphRecord final : public Canvas {
  public:
    void load(const std::filesystem::path&, CanvasSize) override { release(); }
    void release() override { glyphs_.assign(std::size_t{2} * height * width, bare); }
    void copyGlyph(Surface surface, int glyph, int x, int y) override {
        glyphs_.at(place(surface, x, y)) = static_cast<std::int8_t>(glyph);
    }
    void show() override {}

    /// -1 where no glyph was copied to.
    int glyphAt(Surface surface, int x, int y) const { return glyphs_.at(place(surface, x, y)); }

  private:
    // The larger canvas.
    static constexpr int width = 588;
    static constexpr int height = 324;
    static constexpr std::int8_t bare = -1;

    static std::size_t place(Surface surface, int x, int y) {
        const int row = surface == Surface::Grid ? y : height + y;
        return static_cast<std::size_t>(row * width + x);
    }

    std::vector<std::int8_t> glyphs_ =
        std::vector<std::int8_t>(std::size_t{2} * height * width, bare);
};

}  // namespace quorvel::walk
