#include <algorithm>
#include <cstdint>

#include "core/Numbers.h"

#include "page/DotStacks.h"
#include "page/Pictures.h"

namespace quorvel {

namespace {

// Lengths along the picture are tenths of a percent of its width, those across it tenths of a
// pixel.

constexpr std::int64_t linesTop = 340;
constexpr std::int64_t roomOverDots = 120;
constexpr std::int64_t highestStack = 2600;
constexpr std::int64_t lowestStack = 320;

/// How large dots are drawn, by how many there are.
struct DotSize {
    std::int64_t width;
    std::int64_t radius;
};

DotSize dotSizeFor(std::size_t count) {
    constexpr std::size_t few = 60;
    constexpr std::size_t many = 300;
    if (count <= few) return {.width = 18, .radius = 55};
    if (count <= many) return {.width = 11, .radius = 32};
    return {.width = 7, .radius = 20};
}

PercentAxis axisOf(const std::vector<StripDot>& dots, const LetterLimits& limits) {
    const auto& [lowestLimit, highestLimit] = std::ranges::minmax(limits);
    std::int64_t lowest = lowestLimit;
    std::int64_t highest = highestLimit;
    for (const StripDot& dot : dots) {
        lowest = std::min(lowest, dot.percentage);
        highest = std::max(highest, dot.percentage);
    }
    return axisFor(lowest, highest);
}

/// The limits of the letters as lines with their percentages, and each letter between its own.
Html limitLines(const LetterLimits& limits, const PercentAxis& axis, std::int64_t base) {
    constexpr std::int64_t characterWidth = 22;
    constexpr std::int64_t narrowest = 25;
    Html lines;
    std::int64_t right = axis.to;
    std::int64_t lastLabel = PercentAxis::furthest;
    for (std::size_t letter = 0; letter <= limits.size(); ++letter) {
        const std::int64_t left = letter < limits.size() ? limits[letter] : axis.from;
        const std::int64_t place = axis.place(left);
        const std::string name(1, static_cast<char>('A' + letter));
        if (axis.place(right) - place >= narrowest) {
            lines.add("<text class=\"letter\" x=\"", widthPlace((place + axis.place(right)) / 2),
                      "\" y=\"13\">", name, "</text>");
        }
        right = left;
        if (letter == limits.size() || left <= axis.from || left >= axis.to) continue;
        lines.add("<line class=\"limit\" x1=\"", widthPlace(place), "\" x2=\"", widthPlace(place),
                  "\" y1=\"", Tenths{linesTop}, "\" y2=\"", Tenths{base}, "\"/>");
        const auto width = static_cast<std::int64_t>(tenthsText(left).size()) * characterWidth;
        if (lastLabel - place < width) continue;
        lastLabel = place;
        lines.add("<text class=\"soft\" x=\"", widthPlace(place), "\" y=\"29\">", Tenths{left},
                  "</text>");
    }
    return lines;
}

Html baseLine(const PercentAxis& axis, std::int64_t base) {
    const bool isLong = axis.to - axis.from > PercentAxis::whole + PercentAxis::step;
    const std::int64_t step = isLong ? 2 * PercentAxis::step : PercentAxis::step;
    Html line;
    line.add("<line class=\"base\" x1=\"0\" x2=\"100%\" y1=\"", Tenths{base}, "\" y2=\"",
             Tenths{base}, "\"/>");
    for (std::int64_t percentage = axis.from; percentage <= axis.to; percentage += step) {
        const bool isLast = percentage + step > axis.to;
        line.add("<text class=\"soft\" x=\"", widthPlace(axis.place(percentage)), "\" y=\"",
                 Tenths{base + 160}, "\">", Tenths{percentage},
                 isLast ? std::string_view("%") : std::string_view(), "</text>");
    }
    return line;
}

/// The class average, hanging from the axis so that it hides no dot.
Html averageMark(const ClassAverage& average, const PercentAxis& axis, std::int64_t base) {
    constexpr std::int64_t nearLeft = 150;
    constexpr std::int64_t nearRight = 850;
    const std::int64_t place = axis.place(average.tenths);
    std::string_view anchor = "middle";
    if (place < nearLeft) anchor = "start";
    if (place > nearRight) anchor = "end";
    return Html().add("<line class=\"average\" x1=\"", widthPlace(place), "\" x2=\"",
                      widthPlace(place), "\" y1=\"", Tenths{base + 210}, "\" y2=\"",
                      Tenths{base + 270}, "\"/><text class=\"figure\" x=\"", widthPlace(place),
                      "\" y=\"", Tenths{base + 390}, "\" text-anchor=\"", anchor,
                      "\">Class average ", Tenths{average.tenths}, "</text>");
}

}  // namespace

Html stripPicture(const std::vector<StripDot>& dots, const LetterLimits& limits,
                  const std::optional<ClassAverage>& average, const PictureTexts& texts) {
    const PercentAxis axis = axisOf(dots, limits);
    const DotSize size = dotSizeFor(dots.size());
    std::vector<std::int64_t> places;
    places.reserve(dots.size());
    for (const StripDot& dot : dots) places.push_back(axis.place(dot.percentage));
    const std::vector<Dot> stacked = stackDots(places, size.width);
    const std::int64_t rows = std::max(1, rowCount(stacked));
    const std::int64_t pitch = std::min(2 * size.radius + 10, highestStack / rows);
    const std::int64_t base = linesTop + roomOverDots + std::max(rows * pitch, lowestStack);
    const std::int64_t height = base + (average ? 460 : 240);
    Html picture;
    picture.add("<svg class=\"strip\" height=\"", Tenths{height}, "\"", namedPicture(texts));
    picture.add(limitLines(limits, axis, base), baseLine(axis, base));
    if (average) picture.add(averageMark(*average, axis, base));
    picture.add("<g class=\"dots\">");
    for (const Dot& dot : stacked) {
        picture.add("<circle cx=\"", widthPlace(dot.place), "\" cy=\"",
                    Tenths{base - 10 - size.radius - dot.row * pitch}, "\" r=\"",
                    Tenths{size.radius}, "\"><title>", dots[dot.index].name, "</title></circle>");
    }
    picture.add("</g>");
    // One alone has room for its figure.
    if (dots.size() == 1) {
        picture.add("<text class=\"figure\" x=\"", widthPlace(places.front()), "\" y=\"",
                    Tenths{base - 160}, "\">", Tenths{dots.front().percentage}, "</text>");
    }
    return picture.add("</svg>");
}

}  // namespace quorvel
