#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/ScoreColumn.h"

/// Scores for the tests of columns, and what a column says of them.
namespace quorvel {

inline Score number(int value) {
    return Score(TaggedValue(static_cast<std::int16_t>(value)));
}
inline Score text(std::string_view value) {
    return Score::ofText(value);
}

inline CellPoints pointsOf(const Score& score) {
    ScoreColumn column;
    column.setScore(1, Score::zero());
    column.setScore(1, score);
    return column.points(1);
}

/// The scores of students 1 to `count` as texts, an empty one as "-".
inline std::vector<std::string> texts(const ScoreColumn& column, int count) {
    std::vector<std::string> result;
    for (int student = 1; student <= count; ++student) {
        const Score score = column.score(student);
        result.push_back(score.isEmpty() ? "-" : score.text());
    }
    return result;
}

using Texts = std::vector<std::string>;

inline const std::string longText = "12.3456789 points, and a remark of some length";

}  // namespace quorvel
