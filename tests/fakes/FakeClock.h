#pragma once

#include "core/ports/Clock.h"

namespace quorvel {

/// A clock whose date and time can be told apart from all other text.
class FakeClock final : public Clock {
  public:
    std::string date() const override { return "DATE"; }
    std::string time() const override { return "TIME"; }
};

}  // namespace quorvel
