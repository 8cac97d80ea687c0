#pragma once

#include <filesystem>

namespace quorvel {

enum class Surface { Grid, Bottom };

/// The canvas bitmaps to draw on: those of the wide layout or of a 640 x 480 screen.
enum class CanvasSize { Wide, Small };

/// The off-screen canvases and the glyphs that are copied into them.
class Canvas {
  public:
    static constexpr int glyphCount = 35;
    static constexpr int glyphWidth = 8;    // pixels
    static constexpr int glyphHeight = 12;  // pixels

    // The sizes of the canvas bitmaps, in pixels.
    static constexpr int wideWidth = 588;
    static constexpr int smallWidth = 438;
    static constexpr int gridHeight = 324;
    static constexpr int bottomHeight = 42;

    virtual ~Canvas() = default;

    /// Loads the canvas and glyph bitmaps from the program's folder. A bitmap that is missing
    /// leaves its surface blank.
    virtual void load(const std::filesystem::path& programFolder, CanvasSize size) = 0;
    /// Releases every surface; drawing is then without effect until the next load.
    virtual void release() = 0;
    /// Copies glyph 0 to 34 with its upper left corner to pixel (x, y) of the surface. What lies
    /// outside the surface is cut off.
    virtual void copyGlyph(Surface surface, int glyph, int x, int y) = 0;
    /// Brings what was drawn since the last call onto the window.
    virtual void show() = 0;
};

}  // namespace quorvel
