#include "page/Pictures.h"

#include <algorithm>

namespace quorvel {

Html widthPlace(std::int64_t tenths) {
    return Html().add(Tenths{tenths}, "%");
}

namespace {

constexpr int letterCount = 6;

/// The percentages that have a line, and a label over the column.
constexpr std::int64_t gridStep = 500;

/// What a letter needs, in a few words.
Html needOf(std::size_t letter, const LetterLimits& limits) {
    if (letter < limits.size()) return Html().add("from ", Tenths{limits[letter]});
    return Html().add("below");
}

/// Lines that go on from row to row.
Html gridLines(const PercentAxis& axis) {
    Html lines;
    for (std::int64_t percentage = axis.from; percentage <= axis.to; percentage += gridStep) {
        const Html place = widthPlace(axis.place(percentage));
        lines.add("<line class=\"grid\" x1=\"", place, "\" x2=\"", place, "\" y2=\"100%\"/>");
    }
    return lines;
}

}  // namespace

Html namedPicture(const PictureTexts& texts) {
    return Html().add(" role=\"img\" aria-labelledby=\"", texts.id, " ", texts.id,
                      "-text\"><title id=\"", texts.id, "\">", texts.title, "</title><desc id=\"",
                      texts.id, "-text\">", texts.description, "</desc>");
}

Html letterPicture(const std::array<int, 6>& counts, const LetterLimits& limits, const Html& id) {
    constexpr int rowHeight = 30;
    constexpr int barLeft = 96;
    constexpr int longestBar = 180;
    PictureTexts texts{
        .id = id, .title = Html().add("How the letters are distributed"), .description = {}};
    Html rows;
    const int most = std::max(1, *std::ranges::max_element(counts));
    for (std::size_t letter = 0; letter < counts.size(); ++letter) {
        const std::string name(1, static_cast<char>('A' + letter));
        const int top = static_cast<int>(letter) * rowHeight;
        const auto length = static_cast<int>(std::int64_t{counts[letter]} * longestBar / most);
        texts.description.add(letter > 0 ? ", " : std::string_view(), name, " ", counts[letter]);
        rows.add("<text class=\"letter\" y=\"", top + 20, "\">", name, "</text>");
        rows.add("<text class=\"soft\" x=\"24\" y=\"", top + 20, "\">", needOf(letter, limits),
                 "</text>");
        rows.add("<rect class=\"bar\" x=\"", barLeft, "\" y=\"", top + 5, "\" width=\"", length,
                 "\" height=\"20\"/><text class=\"figure\" x=\"", barLeft + length + 8, "\" y=\"",
                 top + 20, "\">", counts[letter], "</text>");
    }
    return Html().add("<svg class=\"letters\" viewBox=\"0 0 320 ", letterCount * rowHeight, "\"",
                      namedPicture(texts), rows, "</svg>");
}

Html spreadPicture(const AssignmentEntry& assignment, const PercentAxis& axis, const Html& id) {
    if (!assignment.spread) {
        return Html().add("<svg class=\"spread\" aria-hidden=\"true\">", gridLines(axis), "</svg>");
    }
    const Spread& spread = *assignment.spread;
    PictureTexts texts{.id = id,
                       .title = Html().add(assignment.name, ": spread of the percentages"),
                       .description = {}};
    texts.description.add("Lowest ", Tenths{spread.lowest}, ", lower quarter ",
                          Tenths{spread.lowerQuarter}, ", middle ", Tenths{spread.middle},
                          ", upper quarter ", Tenths{spread.upperQuarter}, ", highest ",
                          Tenths{spread.highest});
    const std::int64_t left = axis.place(spread.lowerQuarter);
    const std::int64_t right = axis.place(spread.upperQuarter);
    const Html middle = widthPlace(axis.place(spread.middle));
    Html picture;
    picture.add("<svg class=\"spread\"", namedPicture(texts), gridLines(axis));
    picture.add("<line class=\"range\" x1=\"", widthPlace(axis.place(spread.lowest)), "\" x2=\"",
                widthPlace(axis.place(spread.highest)), "\" y1=\"50%\" y2=\"50%\"/>");
    picture.add("<rect class=\"half\" x=\"", widthPlace(left), "\" width=\"",
                widthPlace(right - left), "\" y=\"33%\" height=\"34%\"/>");
    picture.add("<line class=\"middle\" x1=\"", middle, "\" x2=\"", middle,
                "\" y1=\"23%\" y2=\"77%\"/>");
    if (assignment.averagePercentage) {
        picture.add("<circle class=\"ring\" cx=\"",
                    widthPlace(axis.place(*assignment.averagePercentage)),
                    "\" cy=\"50%\" r=\"3.5\"/>");
    }
    return picture.add("</svg>");
}

Html spreadScale(const PercentAxis& axis) {
    Html scale;
    scale.add("<svg class=\"scale\" aria-hidden=\"true\">");
    for (std::int64_t percentage = axis.from; percentage <= axis.to; percentage += gridStep) {
        scale.add("<text x=\"", widthPlace(axis.place(percentage)), "\" y=\"14\">",
                  Tenths{percentage}, "</text>");
    }
    return scale.add("</svg>");
}

}  // namespace quorvel
