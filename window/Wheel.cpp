#include "window/Wheel.h"

namespace quorvel {

int WheelTurns::stepsOf(int turn, const WheelSetting& setting, int page) {
    // A turn the other way does not have to take back the rest of the last one first.
    if ((turn < 0) != (rest_ < 0)) rest_ = 0;
    rest_ += turn * (setting.wholePages ? page : setting.lines);
    const int steps = rest_ / notch;
    rest_ %= notch;
    return steps;
}

}  // namespace quorvel
