#include "window/Controls.h"

#include <algorithm>

namespace quorvel {

void ScrollBar::setMinimum(int minimum) {
    minimum_ = minimum;
    moveTo(position_);
}

void ScrollBar::setMaximum(int maximum) {
    maximum_ = maximum;
    moveTo(position_);
}

void ScrollBar::moveTo(int position) {
    // While a range is being changed its minimum may stand above its maximum for a moment.
    const auto [lowest, highest] = std::minmax(minimum_, maximum_);
    const int reached = std::clamp(position, lowest, highest);
    if (reached == position_) return;
    position_ = reached;
    if (changed_) changed_();
}

}  // namespace quorvel
