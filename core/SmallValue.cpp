#include "core/SmallValue.h"

#include <algorithm>
#include <cstring>
#include <type_traits>

namespace quorvel {

namespace {

template <typename Number>
Number numberFrom(const SmallValue::Characters& payload) {
    Number number{};
    std::memcpy(&number, payload.data(), sizeof number);
    return number;
}

}  // namespace

SmallValue::SmallValue(const TaggedView& value) : type_(static_cast<Type>(value.index())) {
    std::visit(
        [this](const auto& held) {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<Held, std::string_view>) {
                textLength_ = static_cast<std::uint8_t>(held.size());
                std::ranges::copy(held, payload_.begin());
            } else if constexpr (!std::is_same_v<Held, std::monostate>) {
                std::memcpy(payload_.data(), &held, sizeof held);
            }
        },
        value);
}

TaggedView SmallValue::view() const {
    switch (type_) {
        case Type::Integer16:
            return numberFrom<std::int16_t>(payload_);
        case Type::Integer32:
            return numberFrom<std::int32_t>(payload_);
        case Type::Single:
            return numberFrom<float>(payload_);
        case Type::Double:
            return numberFrom<double>(payload_);
        case Type::Text:
            return text();
        case Type::Empty:
            break;
    }
    return {};
}

}  // namespace quorvel
