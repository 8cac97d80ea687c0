#include "qrv/FieldRules.h"

#include <algorithm>
#include <cmath>

#include "core/Numbers.h"
#include "qrv/Composition.h"
#include "storage/RecordFile.h"

namespace quorvel {

namespace {

/// Such a character breaks lines and columns apart where the sheet is shown.
bool isControlCharacter(char character) {
    constexpr char deleteCharacter = 0x7F;
    const auto byte = static_cast<unsigned char>(character);
    return byte < ' ' || character == deleteCharacter;
}

bool isNumber(std::string_view text) {
    return !text.empty() && leadingNumberText(text) == text;
}

std::string longerThan(std::size_t limit) {
    return "longer than " + std::to_string(limit) + " characters";
}

}  // namespace

std::string FieldRules::text(std::string_view field) const {
    std::string text = codePage_.fromUtf8(field);
    if (codePage_.toUtf8(text) != field) {
        const std::string whole = composed(field);
        text = codePage_.fromUtf8(whole);
        if (codePage_.toUtf8(text) != whole) {
            throw FieldError("a character that the sheet's code page lacks");
        }
    }
    if (std::ranges::any_of(text, isControlCharacter)) {
        throw FieldError("a line break, a tab or another control character");
    }
    if (text.size() > longestText) throw FieldError(longerThan(longestText));
    return text;
}

std::int16_t FieldRules::value(std::string_view field) const {
    const double number = leadingNumber(field);
    const bool fits = isNumber(field) && number >= 0 && number <= highestValue;
    if (!fits || std::floor(number) != number) {
        throw FieldError("a point value is a whole number from 0 to " +
                         std::to_string(highestValue));
    }
    return static_cast<std::int16_t>(number);
}

Score FieldRules::score(std::string_view field) const {
    if (field.empty()) return {};
    if (field == "E" || field == "e") return Score::excused();
    if (!isNumber(field)) throw FieldError("a score is a number, E or nothing");
    Score score = scoreFromEntry(field, codePage_);
    if (std::max(field.size(), score.text().size()) > longestTaggedText) {
        throw FieldError(longerThan(longestTaggedText));
    }
    if (score.reading() > Decimal(highestScore)) {
        throw FieldError("a score is at most " + std::to_string(highestScore));
    }
    return score;
}

}  // namespace quorvel
