#include "core/TaggedValue.h"

#include <type_traits>
#include <utility>

#include "core/Numbers.h"

namespace quorvel {

TaggedView viewOf(const TaggedValue& value) {
    return std::visit([](const auto& held) { return TaggedView(held); }, value);
}

TaggedValue valueOf(const TaggedView& view) {
    return std::visit(
        [](const auto& held) {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<Held, std::string_view>)
                return TaggedValue(std::in_place_type<std::string>, held);
            else
                return TaggedValue(held);
        },
        view);
}

std::string textOf(const TaggedView& value) {
    return std::visit(
        [](const auto& held) -> std::string {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<Held, std::monostate>)
                return {};
            else if constexpr (std::is_same_v<Held, std::string_view>)
                return std::string(held);
            else if constexpr (std::is_floating_point_v<Held>)
                return decimalText(held);
            else
                return std::to_string(held);
        },
        value);
}

double numberOf(const TaggedValue& value) {
    return std::visit(
        [](const auto& held) -> double {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<Held, std::monostate>)
                return 0;
            else if constexpr (std::is_same_v<Held, std::string>)
                return leadingNumber(held);
            else
                return static_cast<double>(held);
        },
        value);
}

}  // namespace quorvel
