#include "window/GlyphCanvas.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace quorvel {

namespace {

/// The glyph of a character; nothing for one that has no bitmap.
std::optional<int> glyphOf(char character, GlyphSet set) {
    if (character >= '0' && character <= '9') return glyph::digit(character - '0', set);
    if (character >= 'A' && character <= 'F') return glyph::letter(character, set);
    if (character == '.') return glyph::decimalPoint;
    if (character == ' ') return glyph::blank(set);
    return std::nullopt;
}

bool canBeDrawn(std::string_view text, GlyphSet set) {
    return std::ranges::all_of(
        text, [set](char character) { return glyphOf(character, set).has_value(); });
}

}  // namespace

void GlyphCanvas::load(const std::filesystem::path& programFolder, CanvasSize size) {
    places_.clear();
    canvas_.load(programFolder, size);
}

void GlyphCanvas::release() {
    places_.clear();
    canvas_.release();
}

void GlyphCanvas::place(Surface surface, int glyph, int x, int y) {
    Place& place = places_[{surface, x, y}];
    place.wanted = glyph;
    place.order = ++placings_;
}

void GlyphCanvas::placeBlanks(Surface surface, GlyphSet set, int x, int y, int slots) {
    for (int slot = 0; slot < slots; ++slot)
        place(surface, glyph::blank(set), canvas_places::slotLeft(x, slot), y);
}

void GlyphCanvas::placeText(Surface surface, GlyphSet set, std::string_view text, int x, int y,
                            int slots) {
    const int length = static_cast<int>(text.size());
    const bool fits = length <= slots && canBeDrawn(text, set);
    for (int slot = 0; slot < slots; ++slot) {
        const int character = slot - (slots - length);
        const int wanted = !fits ? glyph::decimalPoint
                           : character < 0
                               ? glyph::blank(set)
                               : *glyphOf(text[static_cast<std::size_t>(character)], set);
        place(surface, wanted, canvas_places::slotLeft(x, slot), y);
    }
}

void GlyphCanvas::finish() {
    std::vector<std::pair<Key, Place*>> changed;
    for (auto& [key, place] : places_)
        if (place.wanted != place.shown) changed.emplace_back(key, &place);
    std::ranges::sort(changed, {}, [](const auto& entry) { return entry.second->order; });
    for (auto& [key, place] : changed) {
        canvas_.copyGlyph(key.surface, place->wanted, key.x, key.y);
        place->shown = place->wanted;
    }
    canvas_.show();
}

}  // namespace quorvel
