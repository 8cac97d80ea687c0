#include "page/StudentSection.h"

#include "page/ClassSection.h"
#include "page/LinePicture.h"
#include "page/Pictures.h"

namespace quorvel {

namespace {

constexpr int level = 2;

Html masthead(const StudentContent& content) {
    const StudentFigures& figures = content.student.figures;
    return Html().add("<header class=\"masthead\"><div>", headingLine(content.heading),
                      "<h1 id=\"student\">", content.student.name, "</h1><p class=\"deck\">",
                      content.title, "</p></div><p class=\"average own\"><b>",
                      Tenths{figures.percentageTenths}, "<small>%</small></b> <i>",
                      letterText(figures.letterGrade), "</i><span>", figures.pointsEarned, " of ",
                      figures.pointsPossible, " points</span></p></header>");
}

Html strip(const StudentContent& content) {
    const StudentFigures& figures = content.student.figures;
    PictureTexts texts{
        .id = Html().add("strip-picture"),
        .title = Html().add("Where ", content.student.name, " stands"),
        .description = Html().add("At ", Tenths{figures.percentageTenths}, " percent, letter ",
                                  letterText(figures.letterGrade))};
    if (content.average) {
        texts.description.add("; the class average is ", Tenths{content.average->tenths});
    }
    return Html().add("<section>",
                      partHeading(level, Html().add("strip"), Html().add("Percentage"),
                                  Html().add("The lines are the limits of the letters.")),
                      stripPicture({{.percentage = figures.percentageTenths,
                                     .name = Html().add(content.student.name)}},
                                   content.limits, content.average, texts),
                      "</section>");
}

Html line(const StudentContent& content) {
    if (content.assignments.empty()) return {};
    return Html().add(
        "<section>",
        partHeading(level, Html().add("line"), Html().add("Across the assignments"),
                    Html().add("Percent of each assignment's value, by its number. A gap is an "
                               "excused score, a ring at the foot an empty cell.")),
        largeLinePicture(content, Html().add("line-picture")), "</section>");
}

Html scoreCell(const CellEntry& cell, int value) {
    if (cell.kind == CellKind::Empty) {
        const std::string_view kind = value == 0 ? "none" : "gap";
        return Html().add("<td class=\"", kind, "\">empty</td>");
    }
    if (cell.kind == CellKind::Excused) return Html().add("<td>excused</td>");
    return Html().add("<td>", cell.text, "</td>");
}

Html shareBar(std::int64_t share) {
    return Html().add("<svg class=\"share\" aria-hidden=\"true\"><rect width=\"", widthPlace(share),
                      "\" height=\"10\"/></svg>");
}

Html scores(const StudentContent& content) {
    if (content.assignments.empty()) return {};
    const PercentAxis axis = lineAxis({content.student});
    Html rows;
    for (const OwnAssignment& assignment : content.assignments) {
        const CellEntry& cell = content.student.cell(assignment.number);
        rows.add("<tr><td class=\"number\">", assignment.number, "</td><th scope=\"row\">",
                 assignment.name, "</th>", scoreCell(cell, assignment.value), "<td>",
                 assignment.value, "</td>", percentCell("percent", cell.percentage),
                 "<td class=\"picture\">");
        if (cell.percentage) rows.add(shareBar(axis.place(*cell.percentage)));
        rows.add("</td></tr>");
    }
    return Html().add(
        "<section>", partHeading(level, Html().add("scores"), Html().add("Every score"), Html()),
        "<table class=\"own-scores\" aria-labelledby=\"scores\"><thead><tr><th scope=\"col\" "
        "class=\"number\">#</th><th scope=\"col\">Assignment</th><th scope=\"col\">Score</th><th "
        "scope=\"col\">Value</th><th scope=\"col\">Percent</th><td class=\"picture\"></td></tr>"
        "</thead><tbody>",
        rows, "</tbody></table></section>");
}

}  // namespace

Html studentSection(const StudentContent& content) {
    return Html().add("<article class=\"one\" aria-labelledby=\"student\">", masthead(content),
                      strip(content), line(content), scores(content), "<footer>",
                      readingNotes(content.limits), "</footer></article>");
}

}  // namespace quorvel
