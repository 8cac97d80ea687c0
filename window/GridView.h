#pragma once

#include <algorithm>

#include "core/GradeSheet.h"
#include "window/Layout.h"

namespace quorvel {

/// The part of a sheet that the window shows.
struct GridView {
    const GradeSheet& sheet;
    const Layout& layout;
    int firstStudent = 0;     // in the top row; 0 for none
    int firstAssignment = 0;  // in the leftmost score column; 0 for none

    int studentCount() const { return countFrom(firstStudent, sheet.studentCount(), visibleRows); }
    int assignmentCount() const {
        return countFrom(firstAssignment, sheet.assignmentCount(), layout.visibleColumns);
    }

  private:
    static int countFrom(int first, int count, int shown) {
        return first == 0 ? 0 : std::clamp(count - first + 1, 0, shown);
    }
};

}  // namespace quorvel
