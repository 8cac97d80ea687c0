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

/// The smallest number that has more digits than so many slots hold.
constexpr std::array firstTooLong{1, 10, 100, 1'000, 10'000};

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

GlyphCanvas::Place& GlyphCanvas::placeOf(Surface surface, int x, int y) {
    const int firstBand = surface == Surface::Grid ? 0 : gridBands;
    const int band = firstBand + y / rowPitch;
    return places_[static_cast<std::size_t>(band * Canvas::wideWidth + x)];
}

/// Places what `glyphAt` says for each of the neighbouring slots from x on, the last one first.
/// Most of it stands there already.
template <typename GlyphAt>
void GlyphCanvas::placeSlots(Surface surface, int x, int y, int slots, GlyphAt glyphAt) {
    Place* const first = &placeOf(surface, x, y);
    for (int slot = slots - 1; slot >= 0; --slot) {
        const int right = canvas_places::slotLeft(0, slot);
        const int glyph = glyphAt(slot);
        Place& place = first[right];
        if (place.lastPlacing >= 0 || place.shownGlyph != glyph)
            note({surface, glyph, x + right, y}, place);
    }
}

void GlyphCanvas::note(const Placing& placing, Place& place) {
    if (placings_.size() == mostPlacings) copyChanged();
    place.lastPlacing = static_cast<std::int16_t>(placings_.size());
    placings_.push_back(placing);
}

void GlyphCanvas::placeBlanks(Surface surface, GlyphSet set, int x, int y, int slots) {
    const int blank = glyph::blank(set);
    placeSlots(surface, x, y, slots, [blank](int) { return blank; });
}

void GlyphCanvas::placeDecimalPoints(Surface surface, int x, int y, int slots) {
    placeSlots(surface, x, y, slots, [](int) { return glyph::decimalPoint; });
}

void GlyphCanvas::placeText(Surface surface, GlyphSet set, std::string_view text, int x, int y,
                            int slots) {
    const int blanks = slots - static_cast<int>(text.size());
    if (blanks < 0 || !canBeDrawn(text)) {
        placeDecimalPoints(surface, x, y, slots);
        return;
    }
    placeSlots(surface, x, y, slots, [=](int slot) {
        return slot < blanks ? glyph::blank(set)
                             : glyphOf(text[static_cast<std::size_t>(slot - blanks)], set);
    });
}

void GlyphCanvas::placeNumber(Surface surface, GlyphSet set, std::int64_t number, int x, int y,
                              int slots) {
    if (number < 0 || number >= firstTooLong[static_cast<std::size_t>(slots)]) {
        placeDecimalPoints(surface, x, y, slots);
        return;
    }
    auto rest = static_cast<int>(number);
    placeSlots(surface, x, y, slots, [=](int slot) mutable {
        const bool isBeforeNumber = rest == 0 && slot < slots - 1;
        const int digit = rest % 10;
        rest /= 10;
        return isBeforeNumber ? glyph::blank(set) : glyph::digit(digit, set);
    });
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
