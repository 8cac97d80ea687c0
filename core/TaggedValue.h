#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace quorvel {

/// A value that carries its type, as the record files hold it: empty, a whole number of 16 or
/// 32 bits, a real of single or double precision, or a text.
using TaggedValue =
    std::variant<std::monostate, std::int16_t, std::int32_t, float, double, std::string>;

/// A tagged value that is looked at where it lies, as long as it lies there.
using TaggedView =
    std::variant<std::monostate, std::int16_t, std::int32_t, float, double, std::string_view>;

TaggedView viewOf(const TaggedValue& value);
TaggedValue valueOf(const TaggedView& view);

/// The value as the user sees it: nothing, decimal text, or the text itself.
std::string textOf(const TaggedView& value);
inline std::string textOf(const TaggedValue& value) {
    return textOf(viewOf(value));
}

/// The value as a number: a text reads as its leading number, nothing as 0.
double numberOf(const TaggedValue& value);

}  // namespace quorvel
