#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <span>

namespace quorvel::walk {

/// Random choices that are the same everywhere for the same route.
class RandomNumbers {
  public:
    explicit RandomNumbers(std::uint64_t route) : engine_(route) {}

    /// From 0 to `count` - 1. Requires count > 0.
    int below(int count) { return static_cast<int>(engine_() % static_cast<std::uint64_t>(count)); }
    /// From `least` to `most`, both included.
    int between(int least, int most) { return least + below(most - least + 1); }
    /// True `percent` times in a hundred.
    bool chance(int percent) { return below(100) < percent; }

    template <typename Range>
    decltype(auto) oneOf(const Range& choices) {
        return choices[static_cast<std::size_t>(below(static_cast<int>(std::size(choices))))];
    }

  private:
    std::mt19937_64 engine_;
};

}  // namespace quorvel::walk
