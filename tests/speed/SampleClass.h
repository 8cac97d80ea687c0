#pragma once

#include "core/GradeSheet.h"

namespace quorvel {

/// The assignments of every class that is measured but the typical one.
inline constexpr int manyAssignments = 200;
/// The sizes of these classes, each twice the one before.
inline constexpr int sizes[] = {125, 250, 500, 1000};

/// A class as a teacher keeps it: names in no order, whole points as typed text, some fractions,
/// some excused, some empty. The same for the same sizes.
GradeSheet sampleClass(int students, int assignments = manyAssignments);

}  // namespace quorvel
