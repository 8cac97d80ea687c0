#pragma once

#include <windows.h>

namespace quorvel::scenario {

/// Tells when the program has taken every message that was posted to it so far: a posted message
/// behind them changes something that can be asked for and that no one misses, the limit for
/// typing into a text box that takes no typing.
class QueueMark {
  public:
    /// Posts a mark to the thread of the box.
    void post(HWND readOnlyBox);
    bool isPostedTo(HWND readOnlyBox) const { return box_ == readOnlyBox; }
    bool isReached() const;
    void forget() { box_ = nullptr; }

  private:
    HWND box_ = nullptr;
    WPARAM limit_ = 0x10'0000;
};

}  // namespace quorvel::scenario
