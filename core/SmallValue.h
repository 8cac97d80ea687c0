#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <variant>

#include "core/TaggedValue.h"

namespace quorvel {

/// A tagged value in 10 bytes: any number, nothing, or a text of up to 8 characters, which every
/// usual score is.
class SmallValue {
  public:
    static constexpr std::size_t longestText = 8;
    using Characters = std::array<char, longestText>;

    /// The empty value.
    SmallValue() = default;
    /// Requires fits(value).
    explicit SmallValue(const TaggedView& value);

    static bool fits(const TaggedView& value) {
        const auto* const text = std::get_if<std::string_view>(&value);
        return text == nullptr || text->size() <= longestText;
    }
    /// Becomes the text of the first `length` characters; what stands behind them does not matter.
    /// Requires length <= longestText.
    constexpr void setText(const Characters& characters, std::size_t length);

    bool isText() const { return type_ == Type::Text; }

    /// Lies in this value.
    TaggedView view() const;
    /// What a text of one to four digits counts as, if there is no needless zero before them; -1
    /// for any other value.
    int fewDigits() const;
    /// Requires a text. Lies in this value.
    std::string_view text() const { return {payload_.data(), textLength_}; }
    /// Requires a text. Zeros behind its end.
    const Characters& characters() const { return payload_; }

  private:
    /// As a tagged value numbers them.
    enum class Type : std::uint8_t { Empty, Integer16, Integer32, Single, Double, Text };

    Type type_ = Type::Empty;
    std::uint8_t textLength_ = 0;
    Characters payload_{};  // the bits of a number, or a text
};

// Where it lies, since a copy of so few bytes would have to wait for each of them.
constexpr void SmallValue::setText(const Characters& characters, std::size_t length) {
    static_assert(std::endian::native == std::endian::little);
    constexpr std::size_t bits = 8;
    // All characters at once: sheets are read by the hundred thousand scores.
    const std::uint64_t kept = length == 0 ? 0 : ~std::uint64_t{0} >> bits * (longestText - length);
    payload_ = std::bit_cast<Characters>(std::bit_cast<std::uint64_t>(characters) & kept);
    type_ = Type::Text;
    textLength_ = static_cast<std::uint8_t>(length);
}

inline int SmallValue::fewDigits() const {
    constexpr std::uint32_t few = sizeof(std::uint32_t);
    constexpr std::uint32_t bits = 8;
    if (type_ != Type::Text || textLength_ == 0 || textLength_ > few) return -1;
    // All four at once, since nobody can foretell how many there are. What is not there becomes
    // zeros before the first.
    std::uint32_t digits = 0;
    std::memcpy(&digits, payload_.data(), sizeof digits);
    digits = (digits ^ 0x30303030U) << bits * (few - textLength_);
    const bool isDigits = ((digits | (digits + 0x76767676U)) & 0x80808080U) == 0;
    const std::uint32_t pairs = digits * 10 + (digits >> bits);
    const std::uint32_t number = (pairs & 0xFF) * 100 + (pairs >> 2 * bits & 0xFF);
    constexpr std::array<std::uint32_t, few + 1> smallest{0, 0, 10, 100, 1000};
    return isDigits && number >= smallest[textLength_] ? static_cast<int>(number) : -1;
}

}  // namespace quorvel
