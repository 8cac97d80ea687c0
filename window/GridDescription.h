#pragma once

#include <string>
#include <string_view>

#include "window/frmQRV.h"

namespace quorvel {

/// What somebody who does not see the window is told of one drawn place in it. Texts are in the
/// code page.
struct DescribedPlace {
    std::string name;   // such as "Adams, Ann, Quiz: 18 of 20"
    std::string value;  // such as "18"
    Rectangle place;    // in the client area
};

/// The score cells, results and class figures that the window draws, as a list: each student's row
/// from left to right, then the averages of the assignments, then the class average. It describes
/// the form as it is at the moment of asking.
class GridDescription {
  public:
    /// The form must outlive the description.
    explicit GridDescription(const frmQRV& form) : form_(form) {}

    int count() const;
    /// The place of that number, from 1 to the count.
    DescribedPlace at(int number) const;
    /// The number of the place under a pixel of the client area; 0 where there is none.
    int numberAt(int x, int y) const;
    /// The number of the cell that the editor stands over; 0 while it is closed.
    int editedNumber() const;

  private:
    int rowLength() const;
    int assignmentFigures() const;
    DescribedPlace inRow(int row, int column) const;
    DescribedPlace result(int row, int result) const;
    DescribedPlace underColumn(int column, bool asPercent) const;
    DescribedPlace classFigure(bool asLetter) const;
    std::string_view nameInRow(int row) const;

    const frmQRV& form_;
};

/// Whose score the editor is open for, such as "Adams, Ann, Quiz"; empty while it is closed.
std::string editorName(const frmQRV& form);

}  // namespace quorvel
