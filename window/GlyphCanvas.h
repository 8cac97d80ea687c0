#pragma once

#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/ports/Canvas.h"
#include "window/CanvasPlaces.h"

namespace quorvel {

/// The canvases with a memory of what each place shows, so that a refresh copies only the glyphs
/// that differ: everything is placed anew, finish() finds out what that changes.
class GlyphCanvas {
  public:
    explicit GlyphCanvas(Canvas& canvas) : canvas_(canvas) {}

    void load(const std::filesystem::path& programFolder, CanvasSize size);
    void release();

    /// Wants `glyph` with its upper left corner at pixel (x, y). The glyph placed last stays on top
    /// where two overlap.
    void place(Surface surface, int glyph, int x, int y);
    /// Places blanks of `set` into `slots` neighbouring slots from x on.
    void placeBlanks(Surface surface, GlyphSet set, int x, int y, int slots);
    /// Places `text` (digits, letters A to F, decimal points) right-aligned in `slots` slots,
    /// blanks before it; decimal points in all slots when it is longer or holds another character.
    void placeText(Surface surface, GlyphSet set, std::string_view text, int x, int y, int slots);

    /// Copies what differs from the last time and shows the canvases.
    void finish();

  private:
    struct Place {
        int wanted = -1;
        int shown = -1;
        std::uint64_t order = 0;  // of its last placing
    };
    struct Key {
        Surface surface;
        int x;
        int y;
        bool operator==(const Key&) const = default;
    };
    struct KeyHash {
        std::size_t operator()(const Key& key) const {
            return static_cast<std::size_t>((key.y * 1024 + key.x) * 2 +
                                            (key.surface == Surface::Grid ? 0 : 1));
        }
    };

    Canvas& canvas_;
    std::unordered_map<Key, Place, KeyHash> places_;
    std::uint64_t placings_ = 0;
};

}  // namespace quorvel
