#pragma once

#include <array>
#include <optional>

#include "core/ports/Canvas.h"
#include "platform/win32/Handles.h"

namespace quorvel {

/// What the rows of the grid stand on, for the texts beside them.
struct RowBands {
    UniqueBrush brush;         // the two colours of the rows, the first row's first
    COLORREF lightColour = 0;  // that of every second row
};

/// The canvases and glyphs as bitmaps in memory. The window that shows them asks for what is new.
class GdiCanvas final : public Canvas {
  public:
    void load(const std::filesystem::path& programFolder, CanvasSize size) override;
    void release() override;
    void copyGlyph(Surface surface, int glyph, int x, int y) override;
    void show() override;

    /// What has to be painted since this was last asked, in pixels of the surface.
    std::optional<RECT> takeChanged(Surface surface);
    /// Copies `area` of a surface to the same place right of and below `left`, `top` of `target`.
    void paint(Surface surface, HDC target, int left, int top, const RECT& area) const;
    RowBands rowBands() const;

  private:
    /// A bitmap and the context that it is drawn through.
    class Picture {
      public:
        Picture() = default;
        /// Takes the bitmap of a file, or a blank one of this size where it cannot be loaded.
        Picture(const std::filesystem::path& file, int width, int height);
        Picture(Picture&&) = default;
        Picture& operator=(Picture&& other) noexcept;
        ~Picture() = default;

        HDC get() const { return context_.get(); }

      private:
        UniqueDC context_;
        UniqueBitmap bitmap_;
        SelectedObject selection_;
    };

    struct Drawing {
        Picture picture;
        RECT drawn{};    // since the last show
        RECT changed{};  // shown, and not yet taken
    };

    Drawing& drawing(Surface surface) { return surface == Surface::Grid ? grid_ : bottom_; }
    const Drawing& drawing(Surface surface) const {
        return surface == Surface::Grid ? grid_ : bottom_;
    }

    std::array<Picture, glyphCount> glyphDCs_;
    Drawing grid_;
    Drawing bottom_;
};

}  // namespace quorvel
