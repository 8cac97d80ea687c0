#include "qrv/NearestName.h"

#include <algorithm>
#include <numeric>
#include <vector>

namespace quorvel {

namespace {

std::size_t distanceBetween(std::string_view from, std::string_view to) {
    // The distances from what has been read of `from` to every start of `to`.
    std::vector<std::size_t> distances(to.size() + 1);
    std::iota(distances.begin(), distances.end(), std::size_t{0});
    for (const char character : from) {
        std::size_t shorterBoth = distances[0]++;
        for (std::size_t length = 1; length <= to.size(); ++length) {
            const std::size_t changed = shorterBoth + (character == to[length - 1] ? 0 : 1);
            shorterBoth = distances[length];
            distances[length] =
                std::min({changed, distances[length] + 1, distances[length - 1] + 1});
        }
    }
    return distances.back();
}

}  // namespace

std::string nearestName(std::string_view word, std::span<const std::string> names) {
    return *std::ranges::min_element(
        names, {}, [word](const std::string& name) { return distanceBetween(word, name); });
}

}  // namespace quorvel
