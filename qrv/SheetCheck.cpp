#include "qrv/SheetCheck.h"

#include <algorithm>
#include <cmath>

#include "core/GradeSheet.h"
#include "core/Numbers.h"
#include "storage/RecordFile.h"

namespace quorvel {

namespace {

using Record = std::span<const std::byte>;
/// What is wrong with a record; nothing when it is sound.
using Damage = std::optional<std::string>;

constexpr std::size_t numberSize = 2;  // of a type, a length, a whole number
constexpr const char* shortened = "it is cut short";

std::size_t numberAt(Record record) {
    return std::to_integer<std::size_t>(record[0]) | std::to_integer<std::size_t>(record[1]) << 8U;
}

Damage damageOfInteger(Record record) {
    if (record.size() < numberSize) return shortened;
    return std::nullopt;
}

/// Of a text behind its length; `longest` is what fits into the record.
Damage damageOfText(Record text, std::size_t longest) {
    if (text.size() < numberSize) return shortened;
    const std::size_t length = numberAt(text);
    if (length > longest) {
        return "a text of " + std::to_string(length) + " characters, where " +
               std::to_string(longest) + " have room";
    }
    if (text.size() - numberSize < length) return shortened;
    return std::nullopt;
}

Damage damageOfPlainText(Record record) {
    return damageOfText(record, longestText);
}

Damage damageOfTaggedValue(Record record) {
    if (record.size() < numberSize) return shortened;
    const std::size_t type = numberAt(record);
    const Record payload = record.subspan(numberSize);
    std::size_t wanted = 0;
    switch (type) {
        case 0:
            return std::nullopt;
        case 8:
            return damageOfText(payload, longestTaggedText);
        case 2:
            wanted = sizeof(std::int16_t);
            break;
        case 3:
            wanted = sizeof(std::int32_t);
            break;
        case 4:
            wanted = sizeof(float);
            break;
        case 5:
            wanted = sizeof(double);
            break;
        default:
            return "a value of unknown type " + std::to_string(type);
    }
    if (payload.size() < wanted) return shortened;
    return std::nullopt;
}

Damage damageOfCount(Record record) {
    if (auto damage = damageOfTaggedValue(record)) return damage;
    const TaggedValue value = RecordReader(record).taggedValue();
    const double count = numberOf(value);
    const auto* text = std::get_if<std::string>(&value);
    const bool isNumber = text == nullptr || !leadingNumberText(*text).empty();
    if (!isNumber || std::floor(count) != count || count < 0 || count > GradeSheet::maximumCount) {
        return text != nullptr ? "a text that is no count"
                               : "no sheet has a count of " + textOf(value);
    }
    return std::nullopt;
}

/// Walks through the records of a sheet in their order, up to the first that is damaged.
class Checker {
  public:
    explicit Checker(Record bytes) : bytes_(bytes) {}

    /// False once a record was damaged.
    bool check(Damage (*damageOf)(Record), std::uint64_t count = 1) {
        for (std::uint64_t i = 0; i < count && !firstDamage_; ++i) {
            const Record record = bytes_.first(std::min(recordSize, bytes_.size()));
            bytes_ = bytes_.subspan(record.size());
            ++number_;
            const Damage damage = record.empty() ? Damage("it is missing") : damageOf(record);
            if (damage) firstDamage_ = DamagedRecord{number_, *damage};
        }
        return !firstDamage_;
    }

    std::optional<int> count() {
        const Record record = bytes_;
        if (!check(damageOfCount)) return std::nullopt;
        return static_cast<int>(numberOf(RecordReader(record).taggedValue()));
    }

    const std::optional<DamagedRecord>& firstDamage() const { return firstDamage_; }

  private:
    Record bytes_;
    std::uint64_t number_ = 0;
    std::optional<DamagedRecord> firstDamage_;
};

}  // namespace

SheetCheck checkSheet(std::span<const std::byte> bytes) {
    SheetCheck result;
    result.recordsPresent = (bytes.size() + recordSize - 1) / recordSize;
    Checker checker(bytes);
    result.studentCount = checker.count();
    if (result.studentCount) result.assignmentCount = checker.count();
    if (result.assignmentCount) {
        const auto students = static_cast<std::uint64_t>(*result.studentCount);
        const auto assignments = static_cast<std::uint64_t>(*result.assignmentCount);
        result.recordsWanted = 3 + assignments * students + 2 * students + 2 * assignments;
        checker.check(damageOfPlainText);
        checker.check(damageOfTaggedValue, assignments * students);
        checker.check(damageOfPlainText, 2 * students);
        for (std::uint64_t i = 0; i < assignments && !checker.firstDamage(); ++i) {
            checker.check(damageOfPlainText) && checker.check(damageOfInteger);
        }
    }
    result.firstDamage = checker.firstDamage();
    return result;
}

}  // namespace quorvel
