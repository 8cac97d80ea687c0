#pragma once

#include <cstddef>
#include <ctime>

namespace quorvel::hostile {

/// What something took: the processor's time, and the most memory at a time beyond what there was.
class Meter {
  public:
    /// Starts measuring. There is one at a time.
    Meter();

    double seconds() const;
    std::size_t mostBytes() const;

  private:
    std::clock_t start_;
    std::size_t bytesBefore_;
};

}  // namespace quorvel::hostile
