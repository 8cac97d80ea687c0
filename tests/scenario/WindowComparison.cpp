#include <algorithm>
#include <array>

#include "tests/scenario/Comparison.h"
#include "tests/scenario/Texts.h"
#include "window/Layout.h"

namespace quorvel::scenario {

namespace {

using namespace canvas_places;

/// What a glyph shows; a bare place looks like a blank.
char characterOf(int glyph) {
    if (glyph == Driver::bareCanvas) return ' ';
    for (const GlyphSet set : {GlyphSet::Plain, GlyphSet::Double}) {
        if (glyph == glyph::blank(set)) return ' ';
        for (int digit = 0; digit <= 9; ++digit)
            if (glyph == glyph::digit(digit, set)) return static_cast<char>('0' + digit);
        for (char letter = 'A'; letter <= 'F'; ++letter)
            if (glyph == glyph::letter(letter, set)) return letter;
    }
    return glyph == glyph::decimalPoint ? '.' : '?';
}

bool belongsTo(int glyph, GlyphSet set) {
    const int firstOfDouble = glyph::digit(0, GlyphSet::Double);
    const int plainBlank = glyph::blank(GlyphSet::Plain);
    const bool plain = glyph == plainBlank || (glyph >= 0 && glyph < glyph::decimalPoint);
    const bool doubled = glyph >= firstOfDouble && glyph != plainBlank;
    return set == GlyphSet::Plain ? plain : doubled;
}

std::string sixDigits(std::uint32_t colour) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text;
    for (int shift = 20; shift >= 0; shift -= 4) text += digits[(colour >> shift) % 16];
    return text;
}

int onScreenRow(int row) {
    if (row < 1 || row > visibleRows)
        throw ScenarioError("rows on screen are 1 to " + std::to_string(visibleRows));
    return row - 1;
}

}  // namespace

Outcome Comparison::operator()(const WindowCaption& expected) const {
    return compareText(expected.caption, driver_.windowCaption());
}

Outcome Comparison::operator()(const WindowEnded&) const {
    return whether(driver_.hasEnded(), "the program goes on");
}

Outcome Comparison::operator()(const ControlText& expected) const {
    return compareText(expected.text, driver_.text(expected.control));
}

Outcome Comparison::operator()(const ControlColour& expected) const {
    const auto colour = driver_.colour(expected.control);
    if (!colour) return cannotBeSeen();
    return whether(*colour == expected.colour, sixDigits(*colour));
}

Outcome Comparison::operator()(const BarRange& expected) const {
    const auto bar = driver_.scrollBar(expected.bar);
    if (!bar) return cannotBeSeen();
    return whether(bar->minimum == expected.minimum && bar->maximum == expected.maximum,
                   std::to_string(bar->minimum) + " " + std::to_string(bar->maximum));
}

Outcome Comparison::operator()(const BarPosition& expected) const {
    const auto bar = driver_.scrollBar(expected.bar);
    if (!bar) return cannotBeSeen();
    return whether(bar->position == expected.position, std::to_string(bar->position));
}

Outcome Comparison::operator()(const ControlVisible& expected) const {
    const auto visible = driver_.visible(expected.control);
    if (!visible) return cannotBeSeen();
    return whether(*visible == expected.visible, *visible ? "visible" : "hidden");
}

Outcome Comparison::operator()(const ControlAt& expected) const {
    const auto place = driver_.position(expected.control);
    if (!place) return cannotBeSeen();
    const int left = static_cast<int>(place->x);
    const int top = static_cast<int>(place->y);
    return whether(left == expected.left && top == expected.top,
                   "at " + std::to_string(left) + " " + std::to_string(top));
}

Outcome Comparison::operator()(const ControlFocused& expected) const {
    const auto focused = driver_.focused(expected.control);
    if (!focused) return cannotBeSeen();
    return whether(*focused, "without the focus");
}

Outcome Comparison::operator()(const SelectedText& expected) const {
    return compareText(expected.text, driver_.selectedText(expected.control));
}

std::optional<std::string> Comparison::glyphs(Surface surface, int x, int y, int slots) const {
    std::string seen;
    for (int slot = 0; slot < slots; ++slot) {
        const auto glyph = driver_.glyphAt(surface, slotLeft(x, slot), y);
        if (!glyph) return std::nullopt;
        seen += characterOf(*glyph);
    }
    return seen;
}

Outcome Comparison::compareGlyphs(std::string_view expected, Surface surface, int x, int y,
                                  int slots) const {
    const auto seen = glyphs(surface, x, y, slots);
    if (!seen) return cannotBeSeen();
    return whether(*seen == expected, quotedText(*seen));
}

int Comparison::columnLeft(int column) const {
    if (column < 1 || column > driver_.visibleColumns())
        throw ScenarioError("columns on screen are 1 to " +
                            std::to_string(driver_.visibleColumns()));
    return scoreLeft(column - 1);
}

Outcome Comparison::operator()(const ScoreGlyphs& expected) const {
    return compareGlyphs(expected.glyphs, Surface::Grid, columnLeft(expected.column),
                         rowTop(onScreenRow(expected.row)), scoreSlots);
}

Outcome Comparison::operator()(const RowGlyphSet& expected) const {
    const int top = rowTop(onScreenRow(expected.row));
    int plain = 0;
    int doubled = 0;
    for (int column = 1; column <= driver_.visibleColumns(); ++column) {
        for (int slot = 0; slot < scoreSlots; ++slot) {
            const auto glyph =
                driver_.glyphAt(Surface::Grid, slotLeft(columnLeft(column), slot), top);
            if (!glyph) return cannotBeSeen();
            plain += belongsTo(*glyph, GlyphSet::Plain) ? 1 : 0;
            doubled += belongsTo(*glyph, GlyphSet::Double) ? 1 : 0;
        }
    }
    const int slots = driver_.visibleColumns() * scoreSlots;
    const int wanted = expected.set == GlyphSet::Plain ? plain : doubled;
    return whether(wanted == slots, std::to_string(plain) + " glyphs plain, " +
                                        std::to_string(doubled) + " double, of " +
                                        std::to_string(slots));
}

Outcome Comparison::operator()(const HeadingGlyphs& expected) const {
    return compareGlyphs(expected.glyphs, Surface::Grid, columnLeft(expected.column), headingTop,
                         scoreSlots);
}

Outcome Comparison::operator()(const ResultGlyphs& expected) const {
    struct Result {
        const std::optional<std::string>& glyphs;
        int left;
        int slots;
    };
    const std::array results{
        Result{expected.earned, pointsEarnedLeft, pointsSlots},
        Result{expected.possible, pointsPossibleLeft, pointsSlots},
        Result{expected.percentage, percentageLeft, percentageSlots},
        Result{expected.grade, letterGradeLeft, 1},
    };
    const int top = rowTop(onScreenRow(expected.row));
    std::string came;
    bool same = true;
    for (const Result& result : results) {
        if (!result.glyphs) continue;
        const auto seen =
            glyphs(Surface::Grid, result.left + driver_.rightColumnsShift(), top, result.slots);
        if (!seen) return cannotBeSeen();
        same = same && *seen == *result.glyphs;
        if (!came.empty()) came += ' ';
        came += quotedText(*seen);
    }
    return whether(same, came);
}

Outcome Comparison::operator()(const FootGlyphs& expected) const {
    const bool score = expected.line == FootGlyphs::Line::Score;
    return compareGlyphs(expected.glyphs, Surface::Bottom, columnLeft(expected.column),
                         score ? averageScoreTop : averagePercentTop, scoreSlots);
}

Outcome Comparison::operator()(const FootClassGlyphs& expected) const {
    const auto average =
        glyphs(Surface::Bottom, classAverageLeft, classAverageTop, percentageSlots);
    const auto grade = glyphs(Surface::Bottom, classLetterLeft, classAverageTop, 1);
    if (!average || !grade) return cannotBeSeen();
    return whether(*average == expected.average && *grade == expected.grade,
                   quotedText(*average) + " " + quotedText(*grade));
}

}  // namespace quorvel::scenario
