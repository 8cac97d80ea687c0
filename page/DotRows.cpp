#include "page/DotRows.h"

#include <algorithm>
#include <array>
#include <utility>

namespace quorvel {

namespace {

/// The same percentages, as many as one row takes in each.
using Block = std::vector<std::vector<std::size_t>>;

/// How many ties stand side by side in a row. Further rows are over it. A row is never so long
/// that one at an end of the axis would leave the page.
std::size_t sideBySide(std::size_t ties, std::int64_t width) {
    constexpr std::size_t always = 5;
    constexpr std::int64_t longestRow = 100;
    const auto most = static_cast<std::size_t>(longestRow / width);
    std::size_t widest = always;
    while (widest < most && widest * widest < ties) ++widest;
    const std::size_t rows = (ties + widest - 1) / widest;
    return (ties + rows - 1) / rows;
}

Block blockOf(const std::vector<std::size_t>& ties, std::int64_t width) {
    const std::size_t most = sideBySide(ties.size(), width);
    Block block;
    for (std::size_t first = 0; first < ties.size(); first += most) {
        const auto begin = ties.begin() + static_cast<std::ptrdiff_t>(first);
        const auto count = static_cast<std::ptrdiff_t>(std::min(most, ties.size() - first));
        block.emplace_back(begin, begin + count);
    }
    return block;
}

/// What the percentages' indices are by percentage, the lowest first.
std::vector<std::vector<std::size_t>> tiesOf(const std::vector<std::int64_t>& percentages) {
    std::vector<std::size_t> order;
    for (std::size_t index = 0; index < percentages.size(); ++index) order.push_back(index);
    std::ranges::stable_sort(order, {}, [&](std::size_t index) { return percentages[index]; });
    std::vector<std::vector<std::size_t>> ties;
    for (const std::size_t index : order) {
        const bool isTie = !ties.empty() && percentages[ties.back().front()] == percentages[index];
        if (!isTie) ties.emplace_back();
        ties.back().push_back(index);
    }
    return ties;
}

/// How far each row is taken, from the left.
class TakenRows {
  public:
    /// The lowest of `count` free rows on each other, from `left` on.
    std::size_t freeFrom(std::int64_t left, std::size_t count) const {
        std::size_t lowest = 0;
        for (std::size_t row = 0; row < ends_.size() && row < lowest + count; ++row) {
            if (ends_[row] > left) lowest = row + 1;
        }
        return lowest;
    }

    /// The rows have to be taken from the foot up.
    void take(std::size_t row, std::int64_t end) {
        if (row == ends_.size()) ends_.push_back(end);
        ends_[row] = end;
    }

    int count() const { return static_cast<int>(ends_.size()); }

  private:
    std::vector<std::int64_t> ends_;
};

}  // namespace

DotRows dotRows(const std::vector<std::int64_t>& percentages, const PercentAxis& axis,
                std::int64_t width) {
    DotRows dots{.width = width, .rows = 0, .runs = {}};
    const std::int64_t gap = width / 2;
    TakenRows taken;
    for (const std::vector<std::size_t>& ties : tiesOf(percentages)) {
        const std::int64_t middle = axis.place(percentages[ties.front()]);
        const auto lengthOf = [&](std::size_t count) {
            return static_cast<std::int64_t>(count) * width;
        };
        Block block = blockOf(ties, width);
        const std::int64_t longest = lengthOf(block.front().size());
        std::size_t row = taken.freeFrom(middle - longest / 2, block.size());
        for (std::vector<std::size_t>& run : block) {
            const std::int64_t left = middle - lengthOf(run.size()) / 2 + width / 2;
            taken.take(row, middle + longest / 2 + gap);
            dots.runs.push_back(
                {.left = left, .row = static_cast<int>(row), .dots = std::move(run)});
            ++row;
        }
    }
    dots.rows = taken.count();
    return dots;
}

DotRows dotRows(const std::vector<std::int64_t>& percentages, const PercentAxis& axis) {
    constexpr std::array<std::int64_t, 6> widths = {20, 16, 12, 10, 8, 6};
    constexpr std::int64_t highest = 300;
    DotRows dots;
    for (const std::int64_t width : widths) {
        dots = dotRows(percentages, axis, width);
        if (dots.rows * width <= highest) break;
    }
    return dots;
}

}  // namespace quorvel
