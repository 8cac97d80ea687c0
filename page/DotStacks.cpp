#include "page/DotStacks.h"

#include <algorithm>
#include <functional>
#include <queue>

namespace quorvel {

std::vector<Dot> stackDots(const std::vector<std::int64_t>& places, std::int64_t width) {
    std::vector<Dot> dots;
    for (std::size_t index = 0; index < places.size(); ++index) {
        dots.push_back({.index = index, .place = places[index]});
    }
    std::ranges::stable_sort(dots, {}, &Dot::place);
    std::priority_queue<int, std::vector<int>, std::greater<>> freeRows;
    // What stands furthest left is passed first, so rows get free in the order in which they were
    // taken.
    std::size_t firstInTheWay = 0;
    int rows = 0;
    for (Dot& dot : dots) {
        for (; dots[firstInTheWay].place + width <= dot.place; ++firstInTheWay) {
            freeRows.push(dots[firstInTheWay].row);
        }
        if (freeRows.empty()) {
            dot.row = rows++;
        } else {
            dot.row = freeRows.top();
            freeRows.pop();
        }
    }
    return dots;
}

int rowCount(const std::vector<Dot>& dots) {
    int rows = 0;
    for (const Dot& dot : dots) rows = std::max(rows, dot.row + 1);
    return rows;
}

}  // namespace quorvel
