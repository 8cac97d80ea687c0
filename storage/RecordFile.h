#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "core/SmallValue.h"
#include "core/TaggedValue.h"
#include "core/ports/Files.h"

namespace quorvel {

/// Every file of the program is a sequence of records of this many bytes, one value at the start of
/// each. Files in the field depend on it.
inline constexpr std::size_t recordSize = 128;
/// The longest plain text that a record holds, behind its 2-byte length.
inline constexpr std::size_t longestText = recordSize - 2;
/// The longest text in a tagged value, behind its type and its length.
inline constexpr std::size_t longestTaggedText = recordSize - 4;

/// A record that does not hold what is wanted there.
struct DamagedRecord {
    std::uint64_t number = 0;  // from 1
    std::string reason;
};

/// Reads values from records in order. Behind the end of the bytes every value reads as empty:
/// a zero, an empty text, an empty tagged value; so does what a shortened last record lacks.
class RecordReader {
  public:
    /// The bytes must outlive the reader.
    explicit RecordReader(std::span<const std::byte> bytes) : bytes_(bytes) {}
    /// Reads a file block by block, from where it stands. It must outlive the reader.
    explicit RecordReader(InputFile& file) : file_(&file) {}
    RecordReader(const RecordReader&) = delete;
    RecordReader& operator=(const RecordReader&) = delete;

    std::int16_t integer();
    /// A text cut short by the end of its record is what there is of it.
    std::string text();
    /// A value of unknown type is empty.
    TaggedValue taggedValue() { return valueOf(taggedView()); }
    /// The same where it lies, until the next one is read.
    TaggedView taggedView();
    /// Fills `target` with the values of the next records as long as they are texts that a small
    /// value has room for, and at hand as a whole. How many it got, which may be none; a record
    /// that is anything else is left to be read.
    std::size_t smallTexts(std::span<SmallValue> target);

    /// True once the next record would start at or behind the end of the bytes.
    bool atEnd() { return bytes_.empty() && !refill(); }
    /// The same where a further record is wanted: it is damaged when it is missing.
    bool hasWanted() {
        if (!atEnd()) return true;
        noteMissing();
        return false;
    }
    /// Passes over all that is left.
    void skipRest();

    /// The records that were there, a shortened last one among them.
    std::uint64_t recordsPresent() const { return present_; }
    /// The file could not be read to its end; what is missing read as empty.
    bool brokeOff() const { return brokeOff_; }
    const std::optional<DamagedRecord>& firstDamage() const { return firstDamage_; }
    /// Calls the record read last damaged.
    void noteDamage(std::string reason);

  private:
    void noteMissing();
    void noteCut();
    void noteTooLong(std::size_t length, std::size_t longest);
    std::span<const std::byte> nextRecord();
    // Each notes what of the value is missing or too long.
    template <typename Number>
    std::optional<Number> numberIn(std::span<const std::byte> bytes);
    template <typename Number>
    TaggedView taggedNumberIn(std::span<const std::byte> payload);
    std::optional<std::string_view> textIn(std::span<const std::byte> bytes, std::size_t longest);
    bool refill();

    std::span<const std::byte> bytes_;  // what is still to be read of the block
    InputFile* file_ = nullptr;         // where more may come from
    Bytes block_;
    std::uint64_t present_ = 0;
    bool brokeOff_ = false;
    std::optional<DamagedRecord> firstDamage_;
};

/// Writes values into records in order, into memory. The unused rest of a record is zeros. A text
/// too long for its record is cut.
class RecordWriter {
  public:
    void integer(std::int16_t value);
    void text(std::string_view value);
    void taggedValue(const TaggedValue& value) { taggedView(viewOf(value)); }
    void taggedView(const TaggedView& value);
    /// Writes a record for each.
    void smallValues(std::span<const SmallValue> values);

    std::span<const std::byte> bytes() const { return bytes_; }
    /// Takes the memory for so many bytes at once.
    void reserve(std::size_t byteCount) { bytes_.reserve(byteCount); }
    /// Starts over without giving the memory back.
    void clear() { bytes_.clear(); }

  private:
    std::span<std::byte> nextRecord();

    Bytes bytes_;
};

/// Writes values into a file block by block, so that its size does not matter.
class RecordStream {
  public:
    /// `file` must outlive the stream.
    explicit RecordStream(OutputFile& file);

    /// What the next value is to be written into; it is not to be kept.
    RecordWriter& next();
    /// Writes a record for each.
    void smallValues(std::span<const SmallValue> values);
    /// Writes whole records as they are.
    void add(std::span<const std::byte> records);
    /// Hands on what is still held.
    void finish();
    /// True once something could not be written; what follows is dropped.
    bool failed() const { return failed_; }

  private:
    void handOn(std::span<const std::byte> records);

    OutputFile& file_;
    RecordWriter block_;
    bool failed_ = false;
};

/// Puts records into `file`: what `write` puts into the stream and, behind it, what an older and
/// longer file held there; see writeSafely. False when it failed; the file is then as it was.
bool writeRecords(Files& files, const std::filesystem::path& file,
                  const std::function<void(RecordStream&)>& write);
/// The same for records that are in memory.
bool writeRecords(Files& files, const std::filesystem::path& file,
                  std::span<const std::byte> records);

}  // namespace quorvel
