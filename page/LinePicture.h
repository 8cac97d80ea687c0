#pragma once

#include <utility>
#include <vector>

#include "page/Html.h"
#include "page/PageContent.h"
#include "page/PercentAxis.h"
#include "page/Pictures.h"

namespace quorvel {

/// How lines across assignments are drawn: one place for each from left to right, percentages from
/// bottom to top. Whatever its size, a picture's strokes stay as wide.
class LineDrawing {
  public:
    /// `assignments` are the numbers of those to draw.
    LineDrawing(std::vector<int> assignments, const PercentAxis& axis)
        : assignments_(std::move(assignments)), axis_(axis) {}

    /// Attributes of the svg that the lines stand in.
    Html frame() const;
    /// The student's line: broken at excused cells, with a ring at the foot for each empty one.
    Html lineOf(const StudentEntry& student) const;
    /// What the line shows, for those who do not see it.
    Html wordsFor(const StudentEntry& student) const;
    /// The averages of the assignments, of which all are given.
    Html averages(const std::vector<AssignmentEntry>& assignments) const;
    /// Lines at 0 and 100 %.
    Html guides() const;

  private:
    int count() const { return static_cast<int>(assignments_.size()); }
    Html point(int place, std::int64_t percentage) const;

    std::vector<int> assignments_;
    PercentAxis axis_;
};

/// The numbers of the assignments up to `last` that have a value, and so percentages.
template <typename Assignment>
std::vector<int> valuedAssignments(const std::vector<Assignment>& assignments, int last) {
    std::vector<int> numbers;
    for (const Assignment& assignment : assignments) {
        const bool isDrawn = assignment.value != 0 && assignment.number <= last;
        if (isDrawn) numbers.push_back(assignment.number);
    }
    return numbers;
}

/// An axis from 0 that all cells of the students have room on.
PercentAxis lineAxis(const std::vector<StudentEntry>& students);

/// What all small pictures of a class have behind their lines; they use it by `id`.
Html lineBackground(const LineDrawing& drawing, const std::vector<AssignmentEntry>& assignments,
                    const Html& id);

/// One student's small picture.
Html linePicture(const StudentEntry& student, const LineDrawing& drawing, const Html& background,
                 const Html& id);

/// One student's line as a large picture of its own.
Html largeLinePicture(const StudentContent& content, const Html& id);

}  // namespace quorvel
