#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace quorvel {

/// A dot on a picture's axis: where along it, and how many dots it stands on.
struct Dot {
    std::size_t index = 0;   // of its place among those given
    std::int64_t place = 0;  // as given
    int row = 0;

    bool operator==(const Dot&) const = default;
};

/// Puts a dot at each place, as low as it goes without touching another: ties stand on each other.
/// `width` is that of a dot. The dots are in the order of their places.
std::vector<Dot> stackDots(const std::vector<std::int64_t>& places, std::int64_t width);

/// How many rows the dots take.
int rowCount(const std::vector<Dot>& dots);

}  // namespace quorvel
