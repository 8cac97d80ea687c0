#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "core/ports/Canvas.h"
#include "window/CanvasPlaces.h"

namespace quorvel {

/// The canvases with a memory of what each place shows, so that a refresh copies only the glyphs
/// that differ: everything is placed anew, finish() finds out what that changes.
class GlyphCanvas {
  public:
    explicit GlyphCanvas(Canvas& canvas);

    void load(const std::filesystem::path& programFolder, CanvasSize size);
    void release();

    // Glyphs are placed with their upper left corner at a pixel (x, y) of the wide canvas and in
    // the neighbouring slots from there on. The glyph placed last stays on top where two overlap.
    // All glyphs of a row band stand at one height.

    /// Places blanks of `set` into the slots.
    void placeBlanks(Surface surface, GlyphSet set, int x, int y, int slots);
    /// Places `text` (digits, letters A to F, decimal points) right-aligned in `slots` slots,
    /// blanks before it; decimal points in all slots when it is longer or holds another character.
    void placeText(Surface surface, GlyphSet set, std::string_view text, int x, int y, int slots);
    /// Places a whole number like its text. Requires at most 4 slots.
    void placeNumber(Surface surface, GlyphSet set, std::int64_t number, int x, int y, int slots);

    /// Copies what differs from the last time and shows the canvases.
    void finish();

  private:
    /// What stands at one x in one row band. Small, since a refresh looks at a thousand of them.
    struct Place {
        std::int16_t lastPlacing = -1;  // its index among the placings; -1 without one
        std::int8_t shownGlyph = -1;
    };
    struct Placing {
        Surface surface;
        int glyph;
        int x;
        int y;
    };

    /// Nothing is shown anywhere.
    void forget();
    Place& placeOf(Surface surface, int x, int y);
    Place& placeOf(const Placing& placing) {
        return placeOf(placing.surface, placing.x, placing.y);
    }
    template <typename GlyphAt>
    void placeSlots(Surface surface, int x, int y, int slots, GlyphAt glyphAt);
    void placeDecimalPoints(Surface surface, int x, int y, int slots);
    void note(const Placing& placing, Place& place);
    void copyChanged();

    Canvas& canvas_;
    /// The grid's, band by band, and behind them the bottom canvas'.
    std::vector<Place> places_;
    /// Since the last finish(), but for those of a glyph that stands there already.
    std::vector<Placing> placings_;
};

}  // namespace quorvel
