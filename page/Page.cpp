#include "page/Page.h"

#include <algorithm>

#include "page/ClassSection.h"
#include "page/PageStyle.h"
#include "page/StudentSection.h"

namespace quorvel {

namespace {

/// What comes before the title. Whatever were to get onto the page, a browser that obeys it loads
/// nothing and runs nothing.
Html head(const std::string& title) {
    return Html().add(
        "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n<meta "
        "http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; style-src "
        "'unsafe-inline'; img-src data:\">\n<meta name=\"viewport\" content=\"width=device-width, "
        "initial-scale=1\">\n<meta name=\"color-scheme\" content=\"light dark\">\n<meta "
        "name=\"generator\" content=\"qrv\">\n<link rel=\"icon\" href=\"data:,\">\n<title>",
        title, "</title>\n<style>");
}

}  // namespace

void Page::add(const ClassContent& content) {
    if (sections_.empty()) title_ = content.title;
    entries_.push_back({.title = content.title,
                        .heading = content.heading,
                        .students = content.students.size(),
                        .average = content.average,
                        .emptyCount = content.emptyCount});
    const SectionPlace place{.number = static_cast<int>(entries_.size()), .isAlone = !several_};
    sections_.push_back(classSection(content, place));
}

void Page::add(const StudentContent& content) {
    title_ = content.student.name + ", " + content.title;
    sections_.push_back(studentSection(content));
}

/// The school, where the classes are all of one that has a name.
std::string Page::titleOfAll() const {
    const std::string& school = entries_.front().heading.school;
    const bool isOne = std::ranges::all_of(
        entries_, [&](const Entry& entry) { return entry.heading.school == school; });
    return isOne && !school.empty() ? school : "Classes";
}

/// One line of the list of contents.
Html Page::contentsRow(std::size_t index, bool withTeacher) const {
    const Entry& entry = entries_[index];
    const SectionPlace place{.number = static_cast<int>(index) + 1, .isAlone = false};
    Html row;
    row.add("<tr><th scope=\"row\"><a href=\"#", place.id(), "\">", entry.title, "</a></th>");
    if (withTeacher) row.add("<td class=\"teacher\">", entry.heading.teacher, "</td>");
    row.add("<td>", entry.students, "</td>");
    if (entry.average) {
        row.add(percentCell("percent", entry.average->tenths), "<td class=\"grade\">",
                letterText(entry.average->letterGrade), "</td>");
    } else {
        row.add("<td></td><td></td>");
    }
    return row.add("<td>", entry.emptyCount, "</td></tr>");
}

Html Page::contents() const {
    Html rows;
    std::size_t students = 0;
    const bool withTeacher = std::ranges::any_of(
        entries_, [](const Entry& entry) { return !entry.heading.teacher.empty(); });
    for (std::size_t index = 0; index < entries_.size(); ++index) {
        students += entries_[index].students;
        rows.add(contentsRow(index, withTeacher));
    }
    const Html teacher =
        withTeacher ? Html().add("<th scope=\"col\" class=\"teacher\">Teacher</th>") : Html();
    return Html().add(
        "<header class=\"masthead\"><div><p class=\"kicker\"><span>", entries_.front().heading.date,
        "</span></p><h1>", titleOfAll(), "</h1><p class=\"deck\">",
        counted(static_cast<std::int64_t>(entries_.size()), "class", "classes"), ", ",
        counted(static_cast<std::int64_t>(students), "student", "students"),
        "</p></div></header><nav aria-labelledby=\"contents\"><h2 id=\"contents\">Contents</h2>"
        "<table class=\"contents\" aria-labelledby=\"contents\"><thead><tr><th "
        "scope=\"col\">Class</th>",
        teacher,
        "<th scope=\"col\">Students</th><th scope=\"col\">Average</th><th "
        "scope=\"col\">Letter</th><th scope=\"col\">Empty cells</th></tr></thead><tbody>",
        rows, "</tbody></table></nav>");
}

void Page::write(const PageSink& sink) const {
    sink(head(several_ ? titleOfAll() : title_).markup());
    sink(pageStyle);
    sink("</style>\n</head>\n<body>\n");
    if (several_) sink(contents().markup());
    sink("<main>\n");
    for (const Html& section : sections_) {
        sink(section.markup());
        sink("\n");
    }
    sink("</main>\n</body>\n</html>\n");
}

}  // namespace quorvel
