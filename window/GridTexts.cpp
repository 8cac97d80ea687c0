#include "window/GridTexts.h"

#include <algorithm>
#include <string_view>

namespace quorvel {

namespace {

constexpr std::string_view lineBreak = "\r\n";

/// The hidden box that full names pass through before they are shown.
constexpr std::size_t txtTruncateSLength = 15;

/// Appends a line; the first one stands alone.
void addLine(std::string& text, bool first, std::string_view line) {
    if (!first) text += lineBreak;
    text += line;
}

/// A line for each student on screen: what `lineOf` says of the student.
template <typename LineOf>
std::string linesOfStudents(const GridView& view, LineOf lineOf) {
    std::string text;
    for (int row = 0; row < view.studentCount(); ++row)
        addLine(text, row == 0, lineOf(view.firstStudent + row));
    return text;
}

}  // namespace

std::string nameLines(const GridView& view) {
    return linesOfStudents(view, [&view](int student) {
        return std::string_view(view.sheet.studentName(student)).substr(0, txtTruncateSLength);
    });
}

std::string aliasLines(const GridView& view) {
    return linesOfStudents(
        view, [&view](int student) { return std::string_view(view.sheet.studentAlias(student)); });
}

std::string rowNumberLines(const GridView& view) {
    return linesOfStudents(view, [](int student) { return std::to_string(student); });
}

std::string rankLines(const GridView& view) {
    return linesOfStudents(
        view, [&view](int student) { return std::to_string(view.sheet.figures(student).rank); });
}

std::size_t longestLine(std::string_view lines) {
    std::size_t longest = 0;
    while (!lines.empty()) {
        const std::size_t end = std::min(lines.find(lineBreak), lines.size());
        longest = std::max(longest, end);
        lines.remove_prefix(std::min(end + lineBreak.size(), lines.size()));
    }
    return longest;
}

AssignmentLines assignmentLines(const GradeSheet& sheet, int first, int count) {
    AssignmentLines lines;
    if (first == 0 || first > sheet.assignmentCount() || sheet.assignmentName(first).empty())
        return lines;
    const int last = std::min(first + count - 1, sheet.assignmentCount());
    for (int assignment = first; assignment <= last; ++assignment) {
        const bool isFirst = assignment == first;
        addLine(lines.numbers, isFirst, std::string("#").append(std::to_string(assignment)));
        addLine(lines.names, isFirst, sheet.assignmentName(assignment));
        addLine(lines.values, isFirst, std::to_string(sheet.assignmentValue(assignment)));
    }
    return lines;
}

}  // namespace quorvel
