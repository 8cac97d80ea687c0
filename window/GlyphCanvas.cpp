#include "window/GlyphCanvas.h"

#include <algorithm>
#include <array>

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

constexpr int gridPixels = Canvas::wideWidth * Canvas::gridHeight;
constexpr int bottomPixels = Canvas::wideWidth * Canvas::bottomHeight;

}  // namespace

GlyphCanvas::GlyphCanvas(Canvas& canvas) : canvas_(canvas) {
    forget();
}

void GlyphCanvas::forget() {
    places_.assign(gridPixels + bottomPixels, {});
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

void GlyphCanvas::place(Surface surface, int glyph, int x, int y) {
    const int place = (surface == Surface::Grid ? 0 : gridPixels) + y * Canvas::wideWidth + x;
    places_[static_cast<std::size_t>(place)].lastPlacing =
        static_cast<std::int32_t>(placings_.size());
    placings_.push_back({place, glyph});
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
    for (std::size_t i = 0; i < placings_.size(); ++i) {
        const auto [index, glyph] = placings_[i];
        Place& place = places_[static_cast<std::size_t>(index)];
        if (place.lastPlacing != static_cast<std::int32_t>(i) || place.shownGlyph == glyph)
            continue;
        copy(index, glyph);
        place.shownGlyph = glyph;
    }
    placings_.clear();
    canvas_.show();
}

void GlyphCanvas::copy(int place, int glyph) {
    const Surface surface = place < gridPixels ? Surface::Grid : Surface::Bottom;
    const int pixel = place % gridPixels;
    canvas_.copyGlyph(surface, glyph, pixel % Canvas::wideWidth, pixel / Canvas::wideWidth);
}

}  // namespace quorvel
