#include "page/ClassTables.h"

#include <algorithm>

#include "page/LinePicture.h"
#include "page/Pictures.h"

namespace quorvel {

namespace {

PercentAxis spreadAxis(const std::vector<AssignmentEntry>& assignments) {
    std::int64_t highest = 0;
    for (const AssignmentEntry& assignment : assignments) {
        if (assignment.spread) highest = std::max(highest, assignment.spread->highest);
    }
    return axisFor(0, highest);
}

/// A count that is 0 nearly everywhere: what is not 0 is to stand out.
Html countCell(int count, std::string_view kind) {
    const std::string_view none = count == 0 ? " none" : "";
    return Html().add("<td class=\"", kind, none, "\">", count, "</td>");
}

Html spreadCells(const AssignmentEntry& assignment) {
    if (!assignment.spread) return Html().add("<td class=\"no-spread\" colspan=\"5\"></td>");
    const Spread& spread = *assignment.spread;
    Html cells;
    for (const std::int64_t figure :
         {spread.lowest, spread.lowerQuarter, spread.middle, spread.upperQuarter, spread.highest}) {
        cells.add(percentCell("five", figure));
    }
    return cells;
}

Html assignmentRow(const AssignmentEntry& assignment, const PercentAxis& axis, const Html& id) {
    return Html().add(
        "<tr><td class=\"number\">", assignment.number, "</td><th scope=\"row\">", assignment.name,
        "</th><td class=\"value\">", assignment.value, "</td>",
        percentCell("percent", assignment.averagePercentage), "<td class=\"picture",
        assignment.spread ? std::string_view() : " bare", "\">",
        spreadPicture(assignment, axis, id), "</td>", spreadCells(assignment),
        countCell(assignment.excusedCount, "excused"),
        countCell(assignment.emptyCount, assignment.value == 0 ? "unfilled" : "unfilled cost"),
        "</tr>");
}

Html studentRow(const StudentEntry& student, const Html& picture) {
    const StudentFigures& figures = student.figures;
    return Html().add(
        "<tr><td class=\"number\">", student.number, "</td><th scope=\"row\">", student.name,
        "</th><td class=\"picture\">", picture, "</td><td class=\"earned\">", figures.pointsEarned,
        "</td><td class=\"possible\">", figures.pointsPossible, "</td>",
        percentCell("percent", figures.percentageTenths), "<td class=\"grade\">",
        letterText(figures.letterGrade), "</td><td class=\"rank\">", figures.rank, "</td></tr>");
}

Html scoreRow(const StudentEntry& student) {
    Html row;
    row.add("<tr><th scope=\"row\">", student.name, "</th>");
    for (const CellEntry& cell : student.cells) row.add("<td>", cell.text, "</td>");
    return row.add("</tr>");
}

}  // namespace

Html letterTable(const ClassContent& content) {
    Html rows;
    for (std::size_t letter = 0; letter < content.letterCounts.size(); ++letter) {
        const std::string name(1, static_cast<char>('A' + letter));
        rows.add("<tr><th scope=\"row\">", name, "</th><td>", content.letterCounts[letter],
                 "</td></tr>");
    }
    return Html().add(
        "<table class=\"away letter-counts\"><caption>Letter grades</caption><thead><tr><th "
        "scope=\"col\">Letter</th><th scope=\"col\">Students</th></tr></thead><tbody>",
        rows, "</tbody></table>");
}

Html assignmentTable(const ClassContent& content, const SectionPlace& place) {
    if (content.assignments.empty()) return {};
    const PercentAxis axis = spreadAxis(content.assignments);
    Html rows;
    for (const AssignmentEntry& assignment : content.assignments) {
        rows.add(
            assignmentRow(assignment, axis, place.id("assignment").add("-", assignment.number)));
    }
    return Html().add(
        "<section>",
        partHeading(place.level() + 1, place.id("assignments"), Html().add("Assignments"),
                    Html().add("Percentages of the value, of the scores that were entered. The "
                               "line runs from the lowest to the highest, the box holds the "
                               "middle half, the bar is the middle, the ring the average.")),
        "<table class=\"assignments\" aria-labelledby=\"", place.id("assignments"),
        "\"><thead><tr><th scope=\"col\" class=\"number\">#</th><th scope=\"col\">Assignment</th>"
        "<th scope=\"col\">Value</th><th scope=\"col\">Average</th><th scope=\"col\" "
        "class=\"picture\"><span class=\"away\">Spread</span>",
        spreadScale(axis),
        "</th><th scope=\"col\" class=\"five\">Lowest</th><th scope=\"col\" "
        "class=\"five\">Quarter</th><th scope=\"col\" class=\"five\">Middle</th><th "
        "scope=\"col\" class=\"five\">Quarter</th><th scope=\"col\" class=\"five\">Highest</th>"
        "<th scope=\"col\">Excused</th><th scope=\"col\">Empty</th></tr></thead><tbody>",
        rows, "</tbody></table></section>");
}

Html studentTable(const ClassContent& content, const SectionPlace& place) {
    const PercentAxis axis = lineAxis(content.students);
    const LineDrawing drawing(valuedAssignments(content.assignments, content.lastAssignment), axis);
    const Html background = place.id("averages");
    Html rows;
    for (const StudentEntry& student : content.students) {
        const Html id = place.id("student").add("-", student.number);
        rows.add(studentRow(student, linePicture(student, drawing, background, id)));
    }
    return Html().add(
        "<section>",
        partHeading(
            place.level() + 1, place.id("students"), Html().add("Students"),
            Html().add("Each line runs across the assignments that have a value, from 0 to 100 "
                       "percent of it. The grey line is the average of the class; a gap "
                       "is an excused score, a ring at the foot an empty cell.")),
        lineBackground(drawing, content.assignments, background),
        "<table class=\"students\" aria-labelledby=\"", place.id("students"),
        "\"><thead><tr><th scope=\"col\" class=\"number\">#</th><th scope=\"col\">Student</th><th "
        "scope=\"col\" class=\"picture\">Across the assignments</th><th scope=\"col\">Earned</th>"
        "<th scope=\"col\">Possible</th><th scope=\"col\">Percent</th><th "
        "scope=\"col\">Letter</th><th scope=\"col\">Rank</th></tr></thead><tbody>",
        rows, "</tbody></table></section>");
}

Html scoreTable(const ClassContent& content) {
    if (content.lastAssignment == 0) return {};
    Html head;
    Html rows;
    for (const AssignmentEntry& assignment : content.assignments) {
        if (assignment.number > content.lastAssignment) break;
        head.add("<th scope=\"col\"><span>", assignment.name, "</span></th>");
    }
    for (const StudentEntry& student : content.students) rows.add(scoreRow(student));
    return Html().add(
        "<details class=\"scores\"><summary>All scores as a table</summary><div "
        "tabindex=\"0\" role=\"region\" aria-label=\"All scores of ",
        content.title, "\"><table><thead><tr><th scope=\"col\">Student</th>", head,
        "</tr></thead><tbody>", rows, "</tbody></table></div></details>");
}

}  // namespace quorvel
