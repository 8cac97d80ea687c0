#include "storage/RecordFile.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <optional>
#include <string>
#include <utility>
#include <variant>

#include "storage/Reading.h"
#include "storage/SafeWriting.h"

namespace quorvel {

namespace {

/// The standard type numbers of automation values. Files in the field hold them.
enum class TypeTag : std::uint16_t {
    Empty = 0,
    Integer16 = 2,
    Integer32 = 3,
    Single = 4,
    Double = 5,
    Text = 8,
};

constexpr std::size_t tagSize = sizeof(TypeTag);
/// Where the text of a tagged value starts, behind its type and its length.
constexpr std::size_t textStart = recordSize - longestTaggedText;
static_assert(blockSize % recordSize == 0);

static_assert(std::endian::native == std::endian::little, "numbers are stored as they are held");

/// The number at the start of `bytes`; nothing when they are too few.
template <typename Number>
inline std::optional<Number> numberAt(std::span<const std::byte> bytes) {
    if (bytes.size() < sizeof(Number)) return std::nullopt;
    Number number{};
    std::memcpy(&number, bytes.data(), sizeof number);
    return number;
}

/// Puts a number at the start of `target` and gives what is left behind it.
template <typename Number>
inline std::span<std::byte> put(std::span<std::byte> target, Number number) {
    std::memcpy(target.data(), &number, sizeof number);
    return target.subspan(sizeof number);
}

void putText(std::span<std::byte> target, std::string_view text, std::size_t longest) {
    const std::string_view kept = text.substr(0, longest);
    const auto rest = put(target, static_cast<std::uint16_t>(kept.size()));
    std::ranges::copy(std::as_bytes(std::span(kept)), rest.begin());
}

/// Puts the type and the value that a tagged value holds.
struct TaggedValuePutter {
    std::span<std::byte> record;

    void operator()(std::monostate) const { put(record, TypeTag::Empty); }
    void operator()(std::int16_t number) const { put(put(record, TypeTag::Integer16), number); }
    void operator()(std::int32_t number) const { put(put(record, TypeTag::Integer32), number); }
    void operator()(float number) const { put(put(record, TypeTag::Single), number); }
    void operator()(double number) const { put(put(record, TypeTag::Double), number); }
    void operator()(std::string_view text) const {
        putText(put(record, TypeTag::Text), text, longestTaggedText);
    }
};

}  // namespace

bool RecordReader::refill() {
    if (file_ == nullptr) return false;
    block_.resize(blockSize);
    const auto count = file_->read(block_);
    brokeOff_ = !count;
    bytes_ = std::span(block_).first(count.value_or(0));
    if (bytes_.size() < block_.size()) file_ = nullptr;
    return !bytes_.empty();
}

void RecordReader::noteMissing() {
    if (!firstDamage_) firstDamage_ = DamagedRecord{present_ + 1, "it is missing"};
}

void RecordReader::skipRest() {
    while (!atEnd()) {
        present_ += (bytes_.size() + recordSize - 1) / recordSize;
        bytes_ = {};
    }
}

void RecordReader::noteCut() {
    noteDamage("it is cut short");
}

void RecordReader::noteTooLong(std::size_t length, std::size_t longest) {
    noteDamage("a text of " + std::to_string(length) + " characters, where " +
               std::to_string(longest) + " have room");
}

void RecordReader::noteDamage(std::string reason) {
    if (!firstDamage_) firstDamage_ = DamagedRecord{present_, std::move(reason)};
}

inline std::span<const std::byte> RecordReader::nextRecord() {
    if (!hasWanted()) return {};
    const auto record = bytes_.first(std::min(recordSize, bytes_.size()));
    bytes_ = bytes_.subspan(record.size());
    ++present_;
    return record;
}

template <typename Number>
inline std::optional<Number> RecordReader::numberIn(std::span<const std::byte> bytes) {
    const auto number = numberAt<Number>(bytes);
    if (!number) noteCut();
    return number;
}

template <typename Number>
inline TaggedView RecordReader::taggedNumberIn(std::span<const std::byte> payload) {
    const auto number = numberIn<Number>(payload);
    return number ? TaggedView(*number) : TaggedView();
}

inline std::optional<std::string_view> RecordReader::textIn(std::span<const std::byte> bytes,
                                                            std::size_t longest) {
    const auto length = numberIn<std::uint16_t>(bytes);
    if (!length) return std::nullopt;
    const auto characters = bytes.subspan(sizeof *length);
    const std::size_t count = std::min<std::size_t>(*length, characters.size());
    if (*length > longest) {
        noteTooLong(*length, longest);
    } else if (count < *length) {
        noteCut();
    }
    return std::string_view(reinterpret_cast<const char*>(characters.data()), count);
}

std::int16_t RecordReader::integer() {
    return numberIn<std::int16_t>(nextRecord()).value_or(0);
}

std::string RecordReader::text() {
    return std::string(textIn(nextRecord(), longestText).value_or(""));
}

TaggedView RecordReader::taggedView() {
    const auto record = nextRecord();
    const auto tag = numberIn<std::uint16_t>(record);
    if (!tag) return {};
    const auto payload = record.subspan(tagSize);
    switch (static_cast<TypeTag>(*tag)) {
        case TypeTag::Empty:
            return {};
        case TypeTag::Integer16:
            return taggedNumberIn<std::int16_t>(payload);
        case TypeTag::Integer32:
            return taggedNumberIn<std::int32_t>(payload);
        case TypeTag::Single:
            return taggedNumberIn<float>(payload);
        case TypeTag::Double:
            return taggedNumberIn<double>(payload);
        case TypeTag::Text: {
            const auto text = textIn(payload, longestTaggedText);
            return text ? TaggedView(*text) : TaggedView();
        }
    }
    noteDamage("a value of unknown type " + std::to_string(*tag));
    return {};
}

std::size_t RecordReader::smallTexts(std::span<SmallValue> target) {
    const std::size_t most = std::min(target.size(), bytes_.size() / recordSize);
    std::size_t count = 0;
    for (; count < most; ++count) {
        const auto record = bytes_.subspan(count * recordSize).first<recordSize>();
        const auto length = *numberAt<std::uint16_t>(record.subspan<tagSize>());
        if (*numberAt<TypeTag>(record) != TypeTag::Text || length > SmallValue::longestText) break;
        target[count].setText(*numberAt<SmallValue::Characters>(record.subspan<textStart>()),
                              length);
    }
    bytes_ = bytes_.subspan(count * recordSize);
    present_ += count;
    return count;
}

std::span<std::byte> RecordWriter::nextRecord() {
    bytes_.resize(bytes_.size() + recordSize);
    return std::span(bytes_).last(recordSize);
}

void RecordWriter::integer(std::int16_t value) {
    put(nextRecord(), value);
}

void RecordWriter::text(std::string_view value) {
    putText(nextRecord(), value, longestText);
}

void RecordWriter::taggedView(const TaggedView& value) {
    std::visit(TaggedValuePutter{nextRecord()}, value);
}

void RecordWriter::smallValues(std::span<const SmallValue> values) {
    const std::size_t start = bytes_.size();
    bytes_.resize(start + values.size() * recordSize);
    auto rest = std::span(bytes_).subspan(start);
    for (const SmallValue& value : values) {
        const auto record = rest.first<recordSize>();
        if (value.isText()) {
            // With the zeros behind it, so that nobody needs to look how long it is.
            const auto length = static_cast<std::uint16_t>(value.text().size());
            put(put(put(record, TypeTag::Text), length), value.characters());
        } else {
            std::visit(TaggedValuePutter{record}, value.view());
        }
        rest = rest.subspan(recordSize);
    }
}

RecordStream::RecordStream(OutputFile& file) : file_(file) {
    block_.reserve(blockSize);
}

RecordWriter& RecordStream::next() {
    if (block_.bytes().size() >= blockSize) finish();
    return block_;
}

void RecordStream::smallValues(std::span<const SmallValue> values) {
    while (!values.empty() && !failed_) {
        RecordWriter& block = next();
        const std::size_t room = (blockSize - block.bytes().size()) / recordSize;
        const auto fitting = values.first(std::min(values.size(), room));
        block.smallValues(fitting);
        values = values.subspan(fitting.size());
    }
}

void RecordStream::finish() {
    handOn(block_.bytes());
    block_.clear();
}

void RecordStream::handOn(std::span<const std::byte> records) {
    if (failed_ || records.empty()) return;
    failed_ = !file_.append(records);
}

void RecordStream::add(std::span<const std::byte> records) {
    finish();
    handOn(records);
}

bool writeRecords(Files& files, const std::filesystem::path& file,
                  const std::function<void(RecordStream&)>& write) {
    return writeSafely(files, file, OldRest::Kept, [&](OutputFile& output) {
        RecordStream stream(output);
        write(stream);
        stream.finish();
        return !stream.failed();
    });
}

bool writeRecords(Files& files, const std::filesystem::path& file,
                  std::span<const std::byte> records) {
    return writeRecords(files, file, [&](RecordStream& stream) { stream.add(records); });
}

}  // namespace quorvel
