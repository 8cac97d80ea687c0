#include "page/ClassSection.h"

#include "page/ClassTables.h"
#include "page/MissingSection.h"
#include "page/Pictures.h"

namespace quorvel {

namespace {

Html summary(const ClassContent& content, const SectionPlace& place) {
    Html text = counted(static_cast<std::int64_t>(content.students.size()), "student", "students");
    text.add(", ", counted(static_cast<std::int64_t>(content.assignments.size()), "assignment",
                           "assignments"));
    if (content.excusedCount > 0) {
        text.add(", ", counted(content.excusedCount, "excused score", "excused scores"));
    }
    if (content.emptyCount == 0) return text.add(", no empty cell");
    return text.add(", <a href=\"#", place.id("missing"), "\">",
                    counted(content.emptyCount, "empty cell", "empty cells"), "</a>");
}

Html masthead(const ClassContent& content, const SectionPlace& place) {
    Html head;
    head.add("<header class=\"masthead\"><div>", headingLine(content.heading), "<h", place.level(),
             " id=\"", place.id("title"), "\">", content.title, "</h", place.level(),
             "><p class=\"deck\">", summary(content, place), "</p></div>",
             averageFigure(content.average));
    if (!place.isAlone) head.add("<p class=\"back\"><a href=\"#contents\">All classes</a></p>");
    return head.add("</header>");
}

Html letters(const ClassContent& content, const SectionPlace& place) {
    return Html().add(
        "<section>",
        partHeading(place.level() + 1, place.id("letters"), Html().add("Letter grades"),
                    Html().add("Students by letter.")),
        letterPicture(content.letterCounts, content.limits, place.id("letter-picture")),
        letterTable(content), "</section>");
}

Html strip(const ClassContent& content, const SectionPlace& place) {
    std::vector<StripDot> dots;
    for (const StudentEntry& student : content.students) {
        const StudentFigures& figures = student.figures;
        dots.push_back({.percentage = figures.percentageTenths,
                        .name = Html().add(student.name, ": ", Tenths{figures.percentageTenths},
                                           ", ", letterText(figures.letterGrade))});
    }
    PictureTexts texts{.id = place.id("strip-picture"),
                       .title = Html().add("Where every student stands"),
                       .description = Html().add(
                           "A dot for each of ",
                           counted(static_cast<std::int64_t>(dots.size()), "student", "students"),
                           " along the percentages; the table of students has the same figures")};
    if (content.average) {
        texts.description.add("; the class average is ", Tenths{content.average->tenths});
    }
    return Html().add(
        "<section>",
        partHeading(place.level() + 1, place.id("strip"), Html().add("Where every student stands"),
                    Html().add("A dot is a student, by percentage. Students with the same one "
                               "stand side by side, joined, and more than five of them in rows. "
                               "The lines are the limits of the letters.")),
        stripPicture(dots, content.limits, content.average, texts), "</section>");
}

}  // namespace

Html counted(std::int64_t count, std::string_view one, std::string_view several) {
    return Html().add(count, " ", count == 1 ? one : several);
}

Html partHeading(int level, const Html& id, const Html& title, const Html& text) {
    Html heading;
    heading.add("<h", level, " id=\"", id, "\">", title, "</h", level, ">");
    if (!text.markup().empty()) heading.add("<p class=\"how\">", text, "</p>");
    return heading;
}

Html headingLine(const PageHeading& heading) {
    Html line;
    for (const std::string* text : {&heading.school, &heading.teacher, &heading.date}) {
        if (!text->empty()) line.add("<span>", *text, "</span> ");
    }
    return Html().add("<p class=\"kicker\">", line, "</p>");
}

Html averageFigure(const std::optional<ClassAverage>& average) {
    if (!average) return {};
    return Html().add("<p class=\"average\"><b>", Tenths{average->tenths},
                      "<small>%</small></b> <i>", letterText(average->letterGrade),
                      "</i><span>class average</span></p>");
}

Html percentCell(std::string_view kind, const std::optional<std::int64_t>& tenths) {
    if (!tenths) return Html().add("<td class=\"", kind, "\"></td>");
    constexpr int onePercent = 10;
    const std::string_view whole = *tenths % onePercent == 0 ? " whole" : "";
    return Html().add("<td class=\"", kind, whole, "\">", Tenths{*tenths}, "</td>");
}

Html readingNotes(const LetterLimits& limits) {
    Html scale;
    for (std::size_t letter = 0; letter < limits.size(); ++letter) {
        const std::string name(1, static_cast<char>('A' + letter));
        scale.add(name, " from ", Tenths{limits[letter]}, ", ");
    }
    return Html().add(
        "<p>Grading scale: ", scale,
        "F below. Percentages are cut to one decimal. An empty cell counts as no points of the "
        "full value; an excused one (E) does not count.</p>");
}

Html classSection(const ClassContent& content, const SectionPlace& place) {
    Html section;
    section.add("<article id=\"", place.id(), "\" aria-labelledby=\"", place.id("title"), "\">",
                masthead(content, place));
    if (content.students.empty()) {
        section.add("<p>There are no students in this class yet.</p>");
    } else {
        section.add("<div class=\"pair\">", letters(content, place), strip(content, place),
                    "</div>", missingSection(content, place), studentTable(content, place),
                    assignmentTable(content, place), scoreTable(content));
    }
    return section.add("<footer>", readingNotes(content.limits), "</footer></article>");
}

}  // namespace quorvel
