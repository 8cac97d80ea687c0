#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/GradeSheet.h"

#include "page/Spread.h"

namespace quorvel {

// What a page shows, as plain values. Texts are UTF-8, percentages are held in tenths of a percent.
// Where a page is to show aliases, no name is in here.

/// What stands at the head of a class; each text may be empty.
struct PageHeading {
    std::string school;
    std::string teacher;
    std::string date;
};

enum class CellKind : std::uint8_t { Empty, Excused, Scored };

struct CellEntry {
    CellKind kind = CellKind::Empty;
    std::string text;                        // as the window's editor shows it
    std::optional<std::int64_t> percentage;  // of the assignment's value, where it has one
};

struct StudentEntry {
    int number = 0;
    std::string name;  // or alias; "Student 7" where it is blank
    StudentFigures figures;
    /// The cells up to the last one that is not empty, so that memory follows what a file holds.
    std::vector<CellEntry> cells;
    int missingCount = 0;  // the empty cells that cost points: not those of an assignment worth 0

    /// Requires 1 <= assignment.
    const CellEntry& cell(int assignment) const;
};

struct AssignmentEntry {
    int number = 0;
    std::string name;  // "Assignment 7" where it is blank
    int value = 0;
    std::optional<std::int64_t> averagePercentage;
    std::optional<Spread> spread;  // of the percentages
    int scoredCount = 0;
    int excusedCount = 0;
    int emptyCount = 0;
};

/// The empty cells of one student or of one assignment that cost points. What is worth 0 is in
/// neither, so both add up to the same.
struct Gap {
    /// Where so many are empty, those behind are only counted.
    static constexpr std::size_t mostNamed = 60;

    int number = 0;           // the student's, or the assignment's
    int count = 0;            // at least 1
    std::vector<int> others;  // the numbers of the first assignments, or students
};

/// What the letters A to E need, from the best one down.
using LetterLimits = std::array<std::int64_t, 5>;

struct ClassContent {
    std::string title;
    PageHeading heading;
    LetterLimits limits{};
    std::optional<ClassAverage> average;
    std::array<int, 6> letterCounts{};  // of A to F
    std::vector<StudentEntry> students;
    std::vector<AssignmentEntry> assignments;
    int lastAssignment = 0;          // the last one that anybody has a score or an E in
    std::vector<Gap> gapsByStudent;  // most gaps first
    std::vector<Gap> gapsByAssignment;
    std::int64_t emptyCount = 0;
    std::int64_t missingCount = 0;  // of the empty ones those of all gaps
    std::int64_t excusedCount = 0;
};

/// An assignment without anything that other students did.
struct OwnAssignment {
    int number = 0;
    std::string name;
    int value = 0;
};

/// One student, and of all others the class average only.
struct StudentContent {
    std::string title;
    PageHeading heading;
    LetterLimits limits{};
    std::optional<ClassAverage> average;
    StudentEntry student;
    std::vector<OwnAssignment> assignments;
};

/// How a sheet is to be shown. Its figures have to be those of the scale.
struct PageChoice {
    const CodePage& codePage;
    const GradingScale& scale;
    PageHeading heading;
    std::string titleOtherwise;  // where the sheet has none
    bool useAliases = false;
};

ClassContent classContent(const GradeSheet& sheet, const PageChoice& choice);
/// Requires a student of the sheet.
StudentContent studentContent(const GradeSheet& sheet, int student, const PageChoice& choice);

}  // namespace quorvel
