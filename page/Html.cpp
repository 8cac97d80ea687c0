#include "page/Html.h"

#include "core/Numbers.h"

namespace quorvel {

namespace {

constexpr char firstPrintable = ' ';
constexpr char deleteCharacter = '\x7F';

/// Whether a control character of two bytes begins here; HTML has no place for those either.
bool isLongControl(std::string_view text) {
    if (text.size() < 2 || text[0] != '\xC2') return false;
    const auto second = static_cast<unsigned char>(text[1]);
    return second >= 0x80 && second <= 0x9F;
}

}  // namespace

void Html::put(std::string_view text) {
    for (; !text.empty(); text.remove_prefix(1)) {
        const char character = text.front();
        const bool isAscii = static_cast<signed char>(character) >= 0;
        if (character == '&') {
            markup_ += "&amp;";
        } else if (character == '<') {
            markup_ += "&lt;";
        } else if (character == '>') {
            markup_ += "&gt;";
        } else if (character == '"') {
            markup_ += "&quot;";
        } else if (character == '\'') {
            markup_ += "&#39;";
        } else if (isLongControl(text)) {
            markup_ += ' ';
            text.remove_prefix(1);
        } else {
            const bool isControl =
                isAscii && (character < firstPrintable || character == deleteCharacter);
            markup_ += isControl ? ' ' : character;
        }
    }
}

void Html::put(Tenths figure) {
    markup_ += tenthsText(figure.count);
}

}  // namespace quorvel
