#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <span>

namespace quorvel::walk {

/// Random choices that are the same everywhere for the same route, or for the same bytes.
class RandomNumbers {
  public:
    explicit RandomNumbers(std::uint64_t route) : engine_(route) {}
    /// The bytes make the choices as long as they last, which they must; a route makes the others.
    explicit RandomNumbers(std::span<const std::byte> choices)
        : engine_(choices.size()), choices_(choices) {}

    /// From 0 to `count` - 1. Requires count > 0.
    int below(int count) { return static_cast<int>(next(count) % static_cast<unsigned>(count)); }
    /// From `least` to `most`, both included.
    int between(int least, int most) { return least + below(most - least + 1); }
    /// True `percent` times in a hundred.
    bool chance(int percent) { return below(100) < percent; }

    template <typename Range>
    decltype(auto) oneOf(const Range& choices) {
        return choices[static_cast<std::size_t>(below(static_cast<int>(std::size(choices))))];
    }

    /// True while there are bytes left to choose.
    bool bytesChoose() const { return !choices_.empty(); }

  private:
    /// As few bytes as can tell `count` choices apart, or a number of the engine's.
    std::uint64_t next(int count) {
        if (choices_.empty()) return engine_();
        std::uint64_t number = 0;
        for (int left = count - 1; left > 0 && !choices_.empty(); left /= byteValues) {
            number = number * byteValues + std::to_integer<std::uint64_t>(choices_.front());
            choices_ = choices_.subspan(1);
        }
        return number;
    }

    static constexpr int byteValues = 256;

    std::mt19937_64 engine_;
    std::span<const std::byte> choices_;
};

}  // namespace quorvel::walk
