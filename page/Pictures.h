#pragma once

#include <array>
#include <optional>
#include <vector>

#include "page/Html.h"
#include "page/PageContent.h"
#include "page/PercentAxis.h"

namespace quorvel {

/// What a picture is called and what it shows, for those who do not see it. `id` is that of its
/// title; no other on the page has it.
struct PictureTexts {
    Html id;
    Html title;
    Html description;
};

/// What stands behind the attributes of a picture's svg: `texts`, tied to it, and the end of its
/// tag.
Html namedPicture(const PictureTexts& texts);

/// A place along a picture's width, as an attribute: "43.2%".
Html widthPlace(std::int64_t tenths);

/// A bar for each letter from A to F with its count and what it needs.
Html letterPicture(const std::array<int, 6>& counts, const LetterLimits& limits, const Html& id);

/// One student's dot; the name shows where the pointer rests on it.
struct StripDot {
    std::int64_t percentage = 0;
    Html name;
};

/// A dot for each percentage along one axis, ties side by side, between the limits of the letters.
/// `texts` are for those who do not see it.
Html stripPicture(const std::vector<StripDot>& dots, const LetterLimits& limits,
                  const std::optional<ClassAverage>& average, const PictureTexts& texts);

/// Where one assignment's percentages lie: a line from the lowest to the highest, a box for the
/// middle half, a mark at the middle and a ring at the average; nothing but the axis' lines where
/// there are none.
Html spreadPicture(const AssignmentEntry& assignment, const PercentAxis& axis, const Html& id);
/// The axis over a column of those.
Html spreadScale(const PercentAxis& axis);

}  // namespace quorvel
