#include "page/MissingSection.h"

namespace quorvel {

namespace {

/// The names behind the gaps' numbers, which count from 1.
template <typename Entry>
Html namesOf(const Gap& gap, const std::vector<Entry>& entries) {
    Html names;
    for (const int number : gap.others) {
        names.add("<li>", entries[static_cast<std::size_t>(number) - 1].name, "</li>");
    }
    const std::int64_t unnamed = gap.count - static_cast<std::int64_t>(gap.others.size());
    if (unnamed > 0) names.add("<li>and ", unnamed, " more</li>");
    return names;
}

/// A table of gaps: `rows` name whose they are, `across` what they have in the other direction.
template <typename Row, typename Across>
Html gapTable(const Html& titleId, const Html& head, const std::vector<Gap>& gaps,
              const std::vector<Row>& rows, const std::vector<Across>& across) {
    Html body;
    for (const Gap& gap : gaps) {
        body.add("<tr><th scope=\"row\">", rows[static_cast<std::size_t>(gap.number) - 1].name,
                 "</th><td class=\"cost\">", gap.count, "</td><td class=\"names\">");
        const bool isAll = gap.count > 1 && static_cast<std::size_t>(gap.count) == across.size();
        if (isAll) {
            body.add("all");
        } else {
            body.add("<ul>", namesOf(gap, across), "</ul>");
        }
        body.add("</td></tr>");
    }
    return Html().add("<table class=\"gaps\" aria-labelledby=\"", titleId, "\"><thead><tr>", head,
                      "</tr></thead><tbody>", body, "</tbody></table>");
}

Html byStudent(const ClassContent& content, const SectionPlace& place) {
    return Html().add(
        "<div>",
        partHeading(place.level() + 2, place.id("gaps-students"), Html().add("By student"), Html()),
        gapTable(place.id("gaps-students"),
                 Html().add("<th scope=\"col\">Student</th><th scope=\"col\">Empty</th><th "
                            "scope=\"col\" class=\"names\">Assignments</th>"),
                 content.gapsByStudent, content.students, content.assignments),
        "</div>");
}

Html byAssignment(const ClassContent& content, const SectionPlace& place) {
    return Html().add(
        "<div>",
        partHeading(place.level() + 2, place.id("gaps-assignments"), Html().add("By assignment"),
                    Html()),
        gapTable(place.id("gaps-assignments"),
                 Html().add("<th scope=\"col\">Assignment</th><th scope=\"col\">Empty</th><th "
                            "scope=\"col\" class=\"names\">Students</th>"),
                 content.gapsByAssignment, content.assignments, content.students),
        "</div>");
}

/// The assignments worth 0 that have empty cells, with how many.
Html worthNothing(const ClassContent& content) {
    std::size_t found = 0;
    Html names;
    for (const AssignmentEntry& assignment : content.assignments) {
        if (assignment.value != 0 || assignment.emptyCount == 0) continue;
        if (found < Gap::mostNamed) {
            names.add(found > 0 ? ", " : std::string_view(), assignment.name, " (",
                      assignment.emptyCount, ")");
        }
        ++found;
    }
    if (found > Gap::mostNamed) names.add(", and ", found - Gap::mostNamed, " more");
    return names;
}

/// What the empty cells cost.
Html costOf(const ClassContent& content) {
    if (content.emptyCount == 0) return Html().add("Nothing: every cell has a score or an E.");
    Html text;
    if (content.missingCount == 0) {
        text.add("Nothing that costs points.");
    } else {
        text.add(counted(content.missingCount, "empty cell counts", "empty cells count"),
                 " as no points of the full value.");
    }
    if (content.emptyCount > content.missingCount) {
        text.add(" Left out are assignments worth 0, where an empty cell costs nothing: ",
                 worthNothing(content), ".");
    }
    return text;
}

}  // namespace

Html missingSection(const ClassContent& content, const SectionPlace& place) {
    Html section;
    section.add("<section class=\"missing\">",
                partHeading(place.level() + 1, place.id("missing"), Html().add("What is missing"),
                            costOf(content)));
    if (content.missingCount > 0) {
        section.add("<div class=\"pair\">", byStudent(content, place), byAssignment(content, place),
                    "</div>");
    }
    return section.add("</section>");
}

}  // namespace quorvel
