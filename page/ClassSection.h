#pragma once

#include "page/Html.h"
#include "page/PageContent.h"

namespace quorvel {

/// Where a class stands on a page: alone, or as the n-th of several, below a heading of their own.
struct SectionPlace {
    int number = 1;
    bool isAlone = true;

    /// The level of the class' own heading; its parts are one below.
    int level() const { return isAlone ? 1 : 2; }
    Html id() const { return Html().add("class-", number); }
    /// An id that no other part of the page has.
    Html id(const char* part) const { return id().add("-", std::string_view(part)); }
};

/// All of one class.
Html classSection(const ClassContent& content, const SectionPlace& place);

/// A heading with the text below it, if any.
Html partHeading(int level, const Html& id, const Html& title, const Html& text);

/// School, teacher and date over a heading.
Html headingLine(const PageHeading& heading);

/// The average of a class, or that there is none, as a large figure.
Html averageFigure(const std::optional<ClassAverage>& average);

/// A cell of a table with a percentage in tenths, if there is one. The decimal points of a column
/// stand below each other, also where a figure is written without one.
Html percentCell(std::string_view kind, const std::optional<std::int64_t>& tenths);

/// How the figures are to be read, and what each letter needs.
Html readingNotes(const LetterLimits& limits);

/// "1 student", "2 students".
Html counted(std::int64_t count, std::string_view one, std::string_view several);

}  // namespace quorvel
