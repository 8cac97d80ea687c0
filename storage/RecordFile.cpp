#include "storage/RecordFile.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <memory>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>
#include <variant>

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
/// What is read or written at a time: few calls, and small enough to stay near the processor.
constexpr std::size_t blockSize = 2048 * recordSize;
/// Names tried for a file beside the one to be written. One that is taken is left alone: it may be
/// the user's, or what a crash left.
constexpr int temporaryNames = 100;

/// The little-endian number at the start of `bytes`; nothing when they are too few.
template <typename Number>
std::optional<Number> numberAt(std::span<const std::byte> bytes) {
    if (bytes.size() < sizeof(Number)) return std::nullopt;
    std::uint64_t bits = 0;
    for (std::size_t index = 0; index < sizeof(Number); ++index) {
        bits |= std::to_integer<std::uint64_t>(bytes[index]) << (8 * index);
    }
    if constexpr (std::is_same_v<Number, float>) {
        return std::bit_cast<float>(static_cast<std::uint32_t>(bits));
    } else if constexpr (std::is_same_v<Number, double>) {
        return std::bit_cast<double>(bits);
    } else {
        return static_cast<Number>(bits);
    }
}

/// The number as a tagged value; empty when there are too few bytes for it.
template <typename Number>
TaggedValue taggedNumberAt(std::span<const std::byte> bytes) {
    const auto number = numberAt<Number>(bytes);
    return number ? TaggedValue(*number) : TaggedValue();
}

/// The text behind a 2-byte length, as far as the bytes go; nothing without a length.
std::optional<std::string_view> textAt(std::span<const std::byte> bytes) {
    const auto length = numberAt<std::uint16_t>(bytes);
    if (!length) return std::nullopt;
    const auto characters = bytes.subspan(sizeof *length);
    const std::size_t count = std::min<std::size_t>(*length, characters.size());
    return std::string_view(reinterpret_cast<const char*>(characters.data()), count);
}

/// Puts a number at the start of `target`, little-endian, and gives what is left behind it.
template <typename Number>
std::span<std::byte> put(std::span<std::byte> target, Number number) {
    std::uint64_t bits = 0;
    if constexpr (std::is_same_v<Number, float>) {
        bits = std::bit_cast<std::uint32_t>(number);
    } else if constexpr (std::is_same_v<Number, double>) {
        bits = std::bit_cast<std::uint64_t>(number);
    } else {
        bits = static_cast<std::uint64_t>(number);
    }
    for (std::size_t index = 0; index < sizeof(Number); ++index) {
        target[index] = static_cast<std::byte>(bits >> (8 * index));
    }
    return target.subspan(sizeof(Number));
}

void putText(std::span<std::byte> target, std::string_view text, std::size_t longest) {
    const std::string_view kept = text.substr(0, longest);
    const auto rest = put(target, static_cast<std::uint16_t>(kept.size()));
    std::ranges::transform(kept, rest.begin(),
                           [](char character) { return static_cast<std::byte>(character); });
}

/// Puts the type and the value that a tagged value holds.
struct TaggedValuePutter {
    std::span<std::byte> record;

    void operator()(std::monostate) const { put(record, TypeTag::Empty); }
    void operator()(std::int16_t number) const { put(put(record, TypeTag::Integer16), number); }
    void operator()(std::int32_t number) const { put(put(record, TypeTag::Integer32), number); }
    void operator()(float number) const { put(put(record, TypeTag::Single), number); }
    void operator()(double number) const { put(put(record, TypeTag::Double), number); }
    void operator()(const std::string& text) const {
        putText(put(record, TypeTag::Text), text, longestTaggedText);
    }
};

/// A file being written beside another one. It is removed unless it took that one's place.
class TemporaryFile {
  public:
    /// `output` writes the file `name`.
    TemporaryFile(Files& files, std::filesystem::path name, std::unique_ptr<OutputFile> output)
        : files_(files), name_(std::move(name)), output_(std::move(output)) {}
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() {
        output_.reset();
        if (!placed_) files_.remove(name_);
    }

    OutputFile& output() { return *output_; }

    bool putInPlaceOf(const std::filesystem::path& target) {
        output_.reset();  // an open file cannot be moved everywhere
        placed_ = files_.replace(name_, target);
        return placed_;
    }

  private:
    Files& files_;
    std::filesystem::path name_;
    std::unique_ptr<OutputFile> output_;
    bool placed_ = false;
};

/// A free name in the same folder that is no sheet's; nothing when all are taken.
std::optional<std::filesystem::path> temporaryNameFor(Files& files,
                                                      const std::filesystem::path& file) {
    for (int number = 1; number <= temporaryNames; ++number) {
        std::filesystem::path name = file;
        name += ".new";
        if (number > 1) name += std::to_string(number);
        if (!files.exists(name)) return name;
    }
    return std::nullopt;
}

using Content = std::function<void(RecordStream&)>;

/// The length written; nothing when not all of it could be.
std::optional<std::uint64_t> writeContent(OutputFile& file, const Content& write) {
    RecordStream stream(file);
    write(stream);
    stream.finish();
    if (stream.failed()) return std::nullopt;
    return stream.length();
}

/// Copies what `old` holds from `offset` on; a file that does not exist holds nothing.
bool appendTail(Files& files, const std::filesystem::path& old, std::uint64_t offset,
                OutputFile& file) {
    const auto tail = files.readFrom(old, offset);
    if (!tail) return !files.exists(old);
    return tail->empty() || file.append(*tail);
}

bool writeOver(Files& files, const std::filesystem::path& file, const Content& write) {
    const auto old = files.read(file);
    if (!old && files.exists(file)) return false;
    auto output = files.open(file, Files::OpenMode::WriteOver);
    if (!output) return false;
    if (writeContent(*output, write) && output->flush()) return true;
    output.reset();
    if (!old) {
        files.remove(file);
    } else if (auto restored = files.open(file, Files::OpenMode::WriteOver)) {
        restored->append(*old);
        restored->flush();
    }
    return false;
}

}  // namespace

bool RecordReader::refill() {
    if (file_ == nullptr) return false;
    block_.resize(blockSize);
    bytes_ = std::span(block_).first(file_->read(block_));
    if (bytes_.size() < block_.size()) file_ = nullptr;
    return !bytes_.empty();
}

std::span<const std::byte> RecordReader::nextRecord() {
    if (bytes_.empty()) refill();
    const auto record = bytes_.first(std::min(recordSize, bytes_.size()));
    bytes_ = bytes_.subspan(record.size());
    return record;
}

std::int16_t RecordReader::integer() {
    return numberAt<std::int16_t>(nextRecord()).value_or(0);
}

std::string RecordReader::text() {
    return std::string(textAt(nextRecord()).value_or(""));
}

TaggedValue RecordReader::taggedValue() {
    const auto record = nextRecord();
    const auto tag = numberAt<std::uint16_t>(record);
    if (!tag) return {};
    const auto payload = record.subspan(tagSize);
    switch (static_cast<TypeTag>(*tag)) {
        case TypeTag::Integer16:
            return taggedNumberAt<std::int16_t>(payload);
        case TypeTag::Integer32:
            return taggedNumberAt<std::int32_t>(payload);
        case TypeTag::Single:
            return taggedNumberAt<float>(payload);
        case TypeTag::Double:
            return taggedNumberAt<double>(payload);
        case TypeTag::Text: {
            const auto text = textAt(payload);
            if (text) return TaggedValue(std::in_place_type<std::string>, *text);
            break;
        }
        case TypeTag::Empty:
            break;
    }
    return {};
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

void RecordWriter::taggedValue(const TaggedValue& value) {
    std::visit(TaggedValuePutter{nextRecord()}, value);
}

RecordWriter& RecordStream::next() {
    if (block_.bytes().size() >= blockSize) finish();
    return block_;
}

void RecordStream::finish() {
    handOn(block_.bytes());
    block_.clear();
}

void RecordStream::handOn(std::span<const std::byte> records) {
    if (failed_ || records.empty()) return;
    failed_ = !file_.append(records);
    length_ += records.size();
}

void RecordStream::add(std::span<const std::byte> records) {
    finish();
    handOn(records);
}

bool writeRecords(Files& files, const std::filesystem::path& file, const Content& write) {
    const std::filesystem::path target = files.followLink(file);
    const auto name = temporaryNameFor(files, target);
    auto output = name ? files.open(*name, Files::OpenMode::Replace) : nullptr;
    if (!output) return writeOver(files, target, write);

    TemporaryFile temporary(files, *name, std::move(output));
    const auto length = writeContent(temporary.output(), write);
    return length && appendTail(files, target, *length, temporary.output()) &&
           temporary.output().flush() && temporary.putInPlaceOf(target);
}

bool writeRecords(Files& files, const std::filesystem::path& file,
                  std::span<const std::byte> records) {
    return writeRecords(files, file, [&](RecordStream& stream) { stream.add(records); });
}

}  // namespace quorvel
