#pragma once

#include <array>
#include <vector>

#include "core/ports/Canvas.h"

namespace quorvel {

/// Canvases that know of each pixel which glyph it was copied from, so that what a user would see
/// after any number of overlapping copies can be read back.
class FakeCanvas final : public Canvas {
  public:
    static constexpr int bare = -1;     // no glyph was copied there
    static constexpr int unknown = -2;  // something else than one whole glyph

    void load(const std::filesystem::path& programFolder, CanvasSize size) override;
    void release() override;
    void copyGlyph(Surface surface, int glyph, int x, int y) override;
    void show() override;

    bool isLoaded() const { return loaded_; }
    CanvasSize size() const { return size_; }

    /// The glyph that the window shows with its upper left corner at (x, y). Blanks of the same set
    /// cannot be told apart, wherever they were copied to.
    int glyphAt(Surface surface, int x, int y) const;

  private:
    /// Which pixel of which glyph; blanks are of one colour, so all their pixels are the same.
    struct Pixel {
        int glyph = bare;
        int x = 0;
        int y = 0;
        bool operator==(const Pixel&) const = default;
    };
    struct Picture {
        int width = 0;
        int height = 0;
        std::vector<Pixel> pixels;

        Picture() = default;
        Picture(int pictureWidth, int pictureHeight);
        bool contains(int x, int y) const;
        Pixel& at(int x, int y);
        const Pixel& at(int x, int y) const;
    };

    static Pixel pixelOf(int glyph, int x, int y);

    std::array<Picture, 2> drawn_;  // by surface
    std::array<Picture, 2> shown_;  // as of the last show()
    CanvasSize size_ = CanvasSize::Wide;
    bool loaded_ = false;
};

}  // namespace quorvel
