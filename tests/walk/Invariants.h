#pragma once

#include <stdexcept>

#include "tests/walk/GlyphRecord.h"
#include "window/frmQRV.h"

namespace quorvel::walk {

/// Something that must hold does not.
class Violation : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// What must hold after whatever the user did. Each throws Violation where it does not.

/// Scroll ranges and the editor against the counts; quick.
void checkWindow(const frmQRV& form);
/// The students' names in alphabetical order without regard to case.
void checkRosterOrder(const frmQRV& form);
/// Every cell is empty, excused, the whole number 0 or a text with a number as entry makes it.
void checkCells(const GradeSheet& sheet);
/// The figures shown are those of the scores on the scale in force, worked out here once more.
void checkFigures(const frmQRV& form);
/// The texts beside the grid and the glyphs of the scores and letters in it.
void checkDisplay(const frmQRV& form, const GlyphRecord& canvas);
/// What was written into a file and read back is the same sheet.
void checkSameSheet(const GradeSheet& saved, const GradeSheet& sheet);

}  // namespace quorvel::walk
