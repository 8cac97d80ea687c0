#include "window/GlyphCanvas.h"

#include <algorithm>
#include <array>
#include <limits>

namespace quorvel {

namespace {

/// The glyph of each character of a set; noGlyph for one that has no bitmap.
using GlyphTable = std::array<std::int8_t, 256>;
constexpr std::int8_t noGlyph = -1;

constexpr GlyphTable glyphTable(GlyphSet set) {
    GlyphTable table{};
    table.fill(noGlyph);
    for (int digit = 0; digit <= 9; ++digit)
        table[static_cast<std::size_t>('0' + digit)] =
            static_cast<std::int8_t>(glyph::digit(digit, set));
    for (char letter = 'A'; letter <= 'F'; ++letter)
        table[static_cast<std::size_t>(letter)] =
            static_cast<std::int8_t>(glyph::letter(letter, set));
    table['.'] = static_cast<std::int8_t>(glyph::decimalPoint);
    table[' '] = static_cast<std::int8_t>(glyph::blank(set));
    return table;
}

constexpr GlyphTable plainGlyphs = glyphTable(GlyphSet::Plain);
constexpr GlyphTable doubleGlyphs = glyphTable(GlyphSet::Double);

/// Every refresh asks for thousands of glyphs, so they are looked up.
int glyphOf(char character, GlyphSet set) {
    const GlyphTable& table = set == GlyphSet::Plain ? plainGlyphs : doubleGlyphs;
    return table[static_cast<unsigned char>(character)];
}

bool canBeDrawn(std::string_view text) {
    return std::ranges::none_of(
        text, [](char character) { return glyphOf(character, GlyphSet::Plain) == noGlyph; });
}

constexpr std::size_t mostPlacings = std::numeric_limits<std::int16_t>::max();

constexpr int bandsIn(int height) {
    return (height + rowPitch - 1) / rowPitch;
}
constexpr int gridBands = bandsIn(Canvas::gridHeight);
constexpr int bottomBands = bandsIn(Canvas::bottomHeight);

}  // namespace

GlyphCanvas::GlyphCanvas(Canvas& canvas) : canvas_(canvas) {
    forget();
}

void GlyphCanvas::forget() {
    places_.assign(static_cast<std::size_t>(gridBands + bottomBands) * Canvas::wideWidth, {});
    placings_.clear();
}

void GlyphCanvas::load(const std::filesystem::path& programFolder, CanvasSize size) {
    forget();
    canvas_.load(programFolder, size);
}

void GlyphCanvas::release() {
    forget();
    canvas_.release();
}

GlyphCanvas::Place& GlyphCanvas::placeOf(const Placing& placing) {
    const int firstBand = placing.surface == Surface::Grid ? 0 : gridBands;
    const int band = firstBand + placing.y / rowPitch;
    return places_[static_cast<std::size_t>(band * Canvas::wideWidth + placing.x)];
}

void GlyphCanvas::place(Surface surface, int glyph, int x, int y) {
    const Placing placing{surface, glyph, x, y};
    Place& place = placeOf(placing);
    if (place.lastPlacing < 0 && place.shownGlyph == glyph) return;
    if (placings_.size() == mostPlacings) copyChanged();
    place.lastPlacing = static_cast<std::int16_t>(placings_.size());
    placings_.push_back(placing);
}

void GlyphCanvas::placeBlanks(Surface surface, GlyphSet set, int x, int y, int slots) {
    for (int slot = 0; slot < slots; ++slot)
        place(surface, glyph::blank(set), canvas_places::slotLeft(x, slot), y);
}

void GlyphCanvas::placeText(Surface surface, GlyphSet set, std::string_view text, int x, int y,
                            int slots) {
    const int length = static_cast<int>(text.size());
    const bool fits = length <= slots && canBeDrawn(text);
    if (fits) placeBlanks(surface, set, x, y, slots - length);
    for (int slot = fits ? slots - length : 0; slot < slots; ++slot) {
        const int wanted =
            fits ? glyphOf(text[static_cast<std::size_t>(slot - (slots - length))], set)
                 : glyph::decimalPoint;
        place(surface, wanted, canvas_places::slotLeft(x, slot), y);
    }
}

void GlyphCanvas::finish() {
    copyChanged();
    canvas_.show();
}

void GlyphCanvas::copyChanged() {
    for (std::size_t i = 0; i < placings_.size(); ++i) {
        const Placing& placing = placings_[i];
        Place& place = placeOf(placing);
        if (place.lastPlacing != static_cast<std::int16_t>(i)) continue;
        place.lastPlacing = -1;
        if (place.shownGlyph == placing.glyph) continue;
        canvas_.copyGlyph(placing.surface, placing.glyph, placing.x, placing.y);
        place.shownGlyph = static_cast<std::int8_t>(placing.glyph);
    }
    placings_.clear();
}

}  // namespace quorvel
