#pragma once

#include <cstdint>

namespace quorvel {

/// How many records a sheet of these counts has.
constexpr std::uint64_t sheetRecords(int students, int assignments) {
    const auto studentCount = static_cast<std::uint64_t>(students);
    const auto assignmentCount = static_cast<std::uint64_t>(assignments);
    return 3 + assignmentCount * studentCount + 2 * studentCount + 2 * assignmentCount;
}

/// Leads a visitor through the records of a sheet in the order that they have in its file, which
/// is told here and nowhere else. The visitor reads, checks or writes the record that each of its
/// functions is named after, or a record for each student's score; the counts are what the rest of
/// the way is made of. It ends early where goesOn() says so, and where the scores ended early.
template <typename Visitor>
void visitSheet(Visitor& visitor) {
    const int students = visitor.studentCount();
    const int assignments = visitor.assignmentCount();
    visitor.sheetTitle();
    for (int assignment = 1; assignment <= assignments; ++assignment)
        if (!visitor.scores(assignment, students)) return;
    for (int student = 1; student <= students && visitor.goesOn(); ++student) {
        visitor.studentName(student);
        visitor.studentAlias(student);
    }
    for (int assignment = 1; assignment <= assignments && visitor.goesOn(); ++assignment) {
        visitor.assignmentName(assignment);
        visitor.assignmentValue(assignment);
    }
}

}  // namespace quorvel
