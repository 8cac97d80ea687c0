#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "window/GridView.h"

namespace quorvel {

// The columns of text beside the grid, a line for each student on screen; lines are separated by
// CR LF.

/// Full names, each cut to what its column holds.
std::string nameLines(const GridView& view);
std::string aliasLines(const GridView& view);
std::string rowNumberLines(const GridView& view);
/// Class ranks, from the figures as last computed.
std::string rankLines(const GridView& view);

/// The number of characters in the longest of these lines.
std::size_t longestLine(std::string_view lines);

/// The columns of the assignment list.
struct AssignmentLines {
    std::string numbers;
    std::string names;
    std::string values;
};

/// At most `count` assignments from `first` on. Nothing where `first` is 0, is behind the last
/// assignment or has no name.
AssignmentLines assignmentLines(const GradeSheet& sheet, int first, int count);

}  // namespace quorvel
