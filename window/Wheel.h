#pragma once

namespace quorvel {

/// How far the system wants a notch of a mouse wheel to go.
struct WheelSetting {
    int lines = 3;
    /// A notch goes as far as the window shows at a time; `lines` is then without meaning.
    bool wholePages = false;
};

/// Turns of one wheel, added up to whole steps: a fine wheel reports parts of a notch.
class WheelTurns {
  public:
    /// What a wheel reports for one notch.
    static constexpr int notch = 120;

    /// The steps forward (down, or to the right) that this turn completes; `page` is what the
    /// window shows at a time.
    int stepsOf(int turn, const WheelSetting& setting, int page);

  private:
    int rest_ = 0;
};

}  // namespace quorvel
