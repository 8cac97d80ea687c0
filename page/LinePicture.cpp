#include "page/LinePicture.h"

#include <algorithm>
#include <optional>

namespace quorvel {

namespace {

constexpr std::int64_t frameHeight = 100;
/// What strokes at 100 % and rings at 0 % need beyond them.
constexpr std::int64_t marginOver = 12;
constexpr std::int64_t marginBelow = 22;

// The large picture's lines, in pixels.
constexpr int largeTop = 20;
constexpr int largeHeight = 160;

Html percentLines(const PercentAxis& axis) {
    constexpr std::int64_t step = 500;
    Html lines;
    for (std::int64_t percentage = 0; percentage <= axis.to; percentage += step) {
        const auto y = largeTop + largeHeight - axis.place(percentage) * largeHeight / 1000;
        const bool isLast = percentage + step > axis.to;
        lines.add("<line class=\"limit\" x1=\"0\" x2=\"100%\" y1=\"", y, "\" y2=\"", y,
                  "\"/><text class=\"soft\" y=\"", y - 4, "\">", Tenths{percentage},
                  isLast ? std::string_view("%") : "", "</text>");
    }
    return lines;
}

/// The assignments' numbers under their places, all or every fifth.
Html numberLabels(const std::vector<int>& numbers) {
    constexpr std::size_t mostLabels = 20;
    constexpr int step = 5;
    const auto count = static_cast<std::int64_t>(numbers.size());
    Html labels;
    for (std::int64_t place = 0; place < count; ++place) {
        const int number = numbers[static_cast<std::size_t>(place)];
        if (numbers.size() > mostLabels && number % step != 0) continue;
        labels.add("<text class=\"soft number\" x=\"", widthPlace((2 * place + 1) * 500 / count),
                   "\" y=\"", largeTop + largeHeight + 24, "\">", number, "</text>");
    }
    return labels;
}

}  // namespace

Html LineDrawing::frame() const {
    return Html().add(" preserveAspectRatio=\"none\" viewBox=\"-.5 -", marginOver, " ",
                      std::max(1, count()), " ", marginOver + frameHeight + marginBelow, "\"");
}

Html LineDrawing::point(int place, std::int64_t percentage) const {
    return Html().add(place, " ", frameHeight - axis_.place(percentage) / 10);
}

Html LineDrawing::lineOf(const StudentEntry& student) const {
    const auto cellAt = [&](int place) -> const CellEntry& {
        return student.cell(assignments_[static_cast<std::size_t>(place)]);
    };
    Html line;
    Html single;
    Html empty;
    for (int place = 0; place < count(); ++place) {
        const CellEntry& cell = cellAt(place);
        if (cell.kind == CellKind::Empty) empty.add("M", point(place, 0), "h0");
        if (!cell.percentage) continue;
        const bool begins = place == 0 || !cellAt(place - 1).percentage;
        const bool ends = place + 1 == count() || !cellAt(place + 1).percentage;
        if (begins && ends) {
            single.add("M", point(place, *cell.percentage), "h0");
        } else {
            line.add(begins ? std::string_view("M") : " ", point(place, *cell.percentage));
        }
    }
    Html paths;
    if (!line.markup().empty()) paths.add("<path class=\"own\" d=\"", line, "\"/>");
    if (!single.markup().empty()) paths.add("<path class=\"single\" d=\"", single, "\"/>");
    if (!empty.markup().empty()) {
        paths.add("<path class=\"empty\" d=\"", empty, "\"/><path class=\"hole\" d=\"", empty,
                  "\"/>");
    }
    return paths;
}

Html LineDrawing::wordsFor(const StudentEntry& student) const {
    int excused = 0;
    int empty = 0;
    std::optional<std::int64_t> lowest;
    std::optional<std::int64_t> highest;
    for (const int assignment : assignments_) {
        const CellEntry& cell = student.cell(assignment);
        if (cell.kind == CellKind::Excused) ++excused;
        if (cell.kind == CellKind::Empty) ++empty;
        if (!cell.percentage) continue;
        lowest = std::min(lowest.value_or(*cell.percentage), *cell.percentage);
        highest = std::max(highest.value_or(*cell.percentage), *cell.percentage);
    }
    Html words;
    if (lowest) {
        words.add("Percentages from ", Tenths{*lowest}, " to ", Tenths{*highest}, "; ");
    }
    return words.add(excused, " excused, ", empty, " empty");
}

Html LineDrawing::averages(const std::vector<AssignmentEntry>& assignments) const {
    Html line;
    bool begins = true;
    for (int place = 0; place < count(); ++place) {
        const int number = assignments_[static_cast<std::size_t>(place)];
        const auto& percentage =
            assignments[static_cast<std::size_t>(number) - 1].averagePercentage;
        if (percentage) {
            line.add(begins ? std::string_view("M") : " ", point(place, *percentage));
        }
        begins = !percentage;
    }
    if (line.markup().empty()) return {};
    return Html().add("<path class=\"mean\" d=\"", line, "\"/>");
}

Html LineDrawing::guides() const {
    Html lines;
    for (const std::int64_t percentage : {std::int64_t{0}, PercentAxis::whole}) {
        lines.add("M-.5 ", frameHeight - axis_.place(percentage) / 10, "h", std::max(1, count()));
    }
    return Html().add("<path class=\"guide\" d=\"", lines, "\"/>");
}

PercentAxis lineAxis(const std::vector<StudentEntry>& students) {
    std::int64_t highest = 0;
    for (const StudentEntry& student : students) {
        for (const CellEntry& cell : student.cells) {
            highest = std::max(highest, cell.percentage.value_or(0));
        }
    }
    return axisFor(0, highest);
}

Html lineBackground(const LineDrawing& drawing, const std::vector<AssignmentEntry>& assignments,
                    const Html& id) {
    return Html().add("<svg class=\"away\" aria-hidden=\"true\"><defs><g id=\"", id, "\">",
                      drawing.guides(), drawing.averages(assignments), "</g></defs></svg>");
}

Html linePicture(const StudentEntry& student, const LineDrawing& drawing, const Html& background,
                 const Html& id) {
    const PictureTexts texts{.id = id,
                             .title = Html().add(student.name, ": line across the assignments"),
                             .description = drawing.wordsFor(student)};
    return Html().add("<svg class=\"line\"", drawing.frame(), namedPicture(texts), "<use href=\"#",
                      background, "\"/>", drawing.lineOf(student), "</svg>");
}

Html largeLinePicture(const StudentContent& content, const Html& id) {
    const PercentAxis axis = lineAxis({content.student});
    const int last = static_cast<int>(content.assignments.size());
    const std::vector<int> numbers = valuedAssignments(content.assignments, last);
    const LineDrawing drawing(numbers, axis);
    const PictureTexts texts{.id = id,
                             .title = Html().add("Line across the assignments"),
                             .description = drawing.wordsFor(content.student)};
    Html picture;
    picture.add("<svg class=\"large\" height=\"", largeTop + largeHeight + 32, "\"",
                namedPicture(texts), percentLines(axis), numberLabels(numbers));
    const auto lengthOf = [](std::int64_t part) { return part * largeHeight / frameHeight; };
    return picture.add("<svg y=\"", largeTop - lengthOf(marginOver), "\" width=\"100%\" height=\"",
                       lengthOf(marginOver + frameHeight + marginBelow), "\"", drawing.frame(), ">",
                       drawing.lineOf(content.student), "</svg></svg>");
}

}  // namespace quorvel
