#include "qrv/SpreadsheetText.h"

#include <algorithm>

namespace quorvel {

namespace {

constexpr char guard = '\'';

}  // namespace

bool looksLikeFormula(std::string_view text) {
    constexpr std::string_view starts = "=+-@\x7F";
    if (text.empty()) return false;
    const auto first = static_cast<unsigned char>(text.front());
    return first < ' ' || starts.find(text.front()) != std::string_view::npos;
}

bool isGuardedFormula(std::string_view text) {
    const std::size_t behind = text.find_first_not_of(guard);
    return behind != 0 && behind != std::string_view::npos && looksLikeFormula(text.substr(behind));
}

std::string_view withoutGuard(std::string_view text) {
    return isGuardedFormula(text) ? text.substr(1) : text;
}

}  // namespace quorvel
