#include "tests/scenario/Records.h"

#include <bit>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <iterator>

#include "core/Numbers.h"
#include "tests/scenario/Texts.h"

namespace quorvel::scenario {

namespace {

enum Tag : unsigned { empty = 0, integer = 2, longInteger = 3, single = 4, real = 5, text = 8 };

/// Reads little-endian values; behind the end of the record there are zeros.
class RecordBytes {
  public:
    explicit RecordBytes(std::span<const std::byte> bytes) : bytes_(bytes) {}

    std::uint64_t number(int size) {
        std::uint64_t value = 0;
        for (int byte = 0; byte < size; ++byte) value |= std::uint64_t{next()} << (8 * byte);
        return value;
    }

    std::string text() {
        const auto length = static_cast<std::size_t>(number(2));
        std::string value;
        while (value.size() < length && position_ < bytes_.size())
            value += static_cast<char>(next());
        return value;
    }

  private:
    unsigned next() {
        return position_ < bytes_.size() ? static_cast<unsigned>(bytes_[position_++]) : 0;
    }

    std::span<const std::byte> bytes_;
    std::size_t position_ = 0;
};

TaggedValue taggedValue(RecordBytes& bytes, unsigned tag) {
    switch (tag) {
        case Tag::integer:
            return static_cast<std::int16_t>(bytes.number(2));
        case Tag::longInteger:
            return static_cast<std::int32_t>(bytes.number(4));
        case Tag::single:
            return std::bit_cast<float>(static_cast<std::uint32_t>(bytes.number(4)));
        case Tag::real:
            return std::bit_cast<double>(bytes.number(8));
        case Tag::text:
            return bytes.text();
        default:
            return {};
    }
}

std::string describedByType(const TaggedValue& value, std::string_view programFolder) {
    struct Describer {
        std::string_view programFolder;

        std::string operator()(std::monostate) const { return "empty"; }
        std::string operator()(std::int16_t number) const {
            return "integer " + std::to_string(number);
        }
        std::string operator()(std::int32_t number) const {
            return "long integer " + std::to_string(number);
        }
        std::string operator()(float number) const { return "single " + decimalText(number); }
        std::string operator()(double number) const { return "double " + decimalText(number); }
        std::string operator()(const std::string& content) const {
            return "text " + quoted(content, programFolder);
        }
    };
    return std::visit(Describer{programFolder}, value);
}

}  // namespace

std::optional<std::vector<std::byte>> fileBytes(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    if (!stream || std::filesystem::is_directory(file)) return std::nullopt;
    const std::string content{std::istreambuf_iterator<char>(stream), {}};
    const auto bytes = std::as_bytes(std::span(content));
    return std::vector<std::byte>(bytes.begin(), bytes.end());
}

std::string describedRecord(std::span<const std::byte> record, FileRecord::Kind kind,
                            std::string_view programFolder) {
    RecordBytes bytes(record);
    if (kind == FileRecord::Kind::Text) return describedValue(bytes.text(), kind, programFolder);
    if (kind == FileRecord::Kind::Integer)
        return describedValue(static_cast<std::int16_t>(bytes.number(2)), kind, programFolder);
    const auto tag = static_cast<unsigned>(bytes.number(2));
    const TaggedValue value = taggedValue(bytes, tag);
    if (tag != Tag::empty && std::holds_alternative<std::monostate>(value))
        return "tagged with the unknown type " + std::to_string(tag);
    return describedValue(value, kind, programFolder);
}

std::string describedValue(const TaggedValue& value, FileRecord::Kind kind,
                           std::string_view programFolder) {
    return (kind == FileRecord::Kind::Tagged ? "tagged " : "") +
           describedByType(value, programFolder);
}

}  // namespace quorvel::scenario
