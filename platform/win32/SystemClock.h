#pragma once

#include "core/CodePage.h"
#include "core/ports/Clock.h"

namespace quorvel {

/// Windows' own clock, in the short formats that the user has chosen.
class SystemClock final : public Clock {
  public:
    /// `codePage` must outlive the clock.
    explicit SystemClock(const CodePage& codePage) : codePage_(codePage) {}

    std::string date() const override;
    /// With seconds, such as 2:15:07 PM.
    std::string time() const override;

  private:
    const CodePage& codePage_;
};

}  // namespace quorvel
