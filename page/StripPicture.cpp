#include <algorithm>
#include <cstdint>

#include "core/Numbers.h"

#include "page/DotRows.h"
#include "page/Pictures.h"

namespace quorvel {

namespace {

// The picture is two on each other. The dots grow with its width and so does the room that they
// need; the lines and texts of the frame keep their size, and page.css leaves them room over and
// below the dots. Lengths along both are tenths of a percent of the width, as are those of the dots
// upward; those of the frame upward are pixels.

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
Html limitLines(const LetterLimits& limits, const PercentAxis& axis) {
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
                  "\" y1=\"34\" y2=\"100%\"/>");
        const auto width = static_cast<std::int64_t>(tenthsText(left).size()) * characterWidth;
        if (lastLabel - place < width) continue;
        lastLabel = place;
        lines.add("<text class=\"soft\" x=\"", widthPlace(place), "\" y=\"29\">", Tenths{left},
                  "</text>");
    }
    return lines;
}

/// What stands below the line that the dots stand on.
Html axisLabels(const PercentAxis& axis) {
    const bool isLong = axis.to - axis.from > PercentAxis::whole + PercentAxis::step;
    const std::int64_t step = isLong ? 2 * PercentAxis::step : PercentAxis::step;
    Html labels;
    for (std::int64_t percentage = axis.from; percentage <= axis.to; percentage += step) {
        const bool isLast = percentage + step > axis.to;
        labels.add("<text class=\"soft\" x=\"", widthPlace(axis.place(percentage)), "\" y=\"16\">",
                   Tenths{percentage}, isLast ? std::string_view("%") : std::string_view(),
                   "</text>");
    }
    return labels;
}

/// The class average, hanging from the axis so that it hides no dot.
Html averageMark(const ClassAverage& average, const PercentAxis& axis) {
    constexpr std::int64_t nearLeft = 150;
    constexpr std::int64_t nearRight = 850;
    const std::int64_t place = axis.place(average.tenths);
    std::string_view anchor = "middle";
    if (place < nearLeft) anchor = "start";
    if (place > nearRight) anchor = "end";
    return Html().add("<line class=\"average\" x1=\"", widthPlace(place), "\" x2=\"",
                      widthPlace(place), "\" y1=\"21\" y2=\"27\"/><text class=\"figure\" x=\"",
                      widthPlace(place), "\" y=\"39\" text-anchor=\"", anchor, "\">Class average ",
                      Tenths{average.tenths}, "</text>");
}

/// One alone has room for its figure.
Html figureOver(const StripDot& dot, const PercentAxis& axis) {
    return Html().add("<text class=\"figure\" x=\"", widthPlace(axis.place(dot.percentage)),
                      "\" y=\"-24\">", Tenths{dot.percentage}, "</text>");
}

/// All but the dots, for the eye only: what it shows stands in words elsewhere on the page.
Html frame(const std::vector<StripDot>& dots, const LetterLimits& limits, const PercentAxis& axis,
           const std::optional<ClassAverage>& average) {
    Html picture;
    picture.add("<svg class=\"frame\" aria-hidden=\"true\">", limitLines(limits, axis),
                "<line class=\"base\" x1=\"0\" x2=\"100%\" y1=\"100%\" y2=\"100%\"/>");
    picture.add("<svg y=\"100%\">", axisLabels(axis));
    if (dots.size() == 1) picture.add(figureOver(dots.front(), axis));
    if (average) picture.add(averageMark(*average, axis));
    return picture.add("</svg></svg>");
}

/// The dots of one percentage in one row, joined by a bar.
Html dotsOf(const DotRun& run, std::int64_t width, const std::vector<StripDot>& dots) {
    const std::int64_t up = run.row * width + width / 2;
    const auto length = (static_cast<std::int64_t>(run.dots.size()) - 1) * width;
    Html circles;
    if (length > 0) circles.add("<path d=\"M", run.left, " ", -up, "h", length, "\"/>");
    const Tenths radius{width * 17 / 4};  // a little less than half the width: none touch
    std::int64_t along = run.left;
    for (const std::size_t index : run.dots) {
        circles.add("<circle cx=\"", along, "\" cy=\"", -up, "\" r=\"", radius, "\"><title>",
                    dots[index].name, "</title></circle>");
        along += width;
    }
    return circles;
}

}  // namespace

Html stripPicture(const std::vector<StripDot>& dots, const LetterLimits& limits,
                  const std::optional<ClassAverage>& average, const PictureTexts& texts) {
    constexpr std::int64_t lowestPicture = 90;
    constexpr std::int64_t barTenths = 2;  // of a dot's width
    const PercentAxis axis = axisOf(dots, limits);
    std::vector<std::int64_t> percentages;
    percentages.reserve(dots.size());
    for (const StripDot& dot : dots) percentages.push_back(dot.percentage);
    const DotRows placed = dotRows(percentages, axis);
    const std::int64_t height = std::max(placed.rows * placed.width, lowestPicture);
    Html picture;
    picture.add("<div class=\"strip\">", frame(dots, limits, axis, average),
                "<svg class=\"dots\" viewBox=\"0 ", -height, " 1000 ", height, "\"",
                namedPicture(texts), "<g stroke-width=\"", Tenths{placed.width * barTenths}, "\">");
    for (const DotRun& run : placed.runs) picture.add(dotsOf(run, placed.width, dots));
    return picture.add("</g></svg></div>");
}

}  // namespace quorvel
