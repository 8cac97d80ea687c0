#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>

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
    TaggedValue taggedValue();
    /// True once the next record would start at or behind the end of the bytes.
    bool atEnd() { return bytes_.empty() && !refill(); }

  private:
    std::span<const std::byte> nextRecord();
    bool refill();

    std::span<const std::byte> bytes_;  // what is still to be read of the block
    InputFile* file_ = nullptr;         // where more may come from
    Bytes block_;
};

/// Writes values into records in order, into memory. The unused rest of a record is zeros. A text
/// too long for its record is cut.
class RecordWriter {
  public:
    void integer(std::int16_t value);
    void text(std::string_view value);
    void taggedValue(const TaggedValue& value);

    std::span<const std::byte> bytes() const { return bytes_; }
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
    explicit RecordStream(OutputFile& file) : file_(file) {}

    /// What the next value is to be written into; it is not to be kept.
    RecordWriter& next();
    /// Writes whole records as they are.
    void add(std::span<const std::byte> records);
    /// Hands on what is still held.
    void finish();
    /// True once something could not be written; what follows is dropped.
    bool failed() const { return failed_; }
    /// The bytes handed on so far.
    std::uint64_t length() const { return length_; }

  private:
    void handOn(std::span<const std::byte> records);

    OutputFile& file_;
    RecordWriter block_;
    std::uint64_t length_ = 0;
    bool failed_ = false;
};

/// Puts records into `file` so that at any moment, crashes included, it holds either its old bytes
/// or the new ones: what `write` puts into the stream and, behind it, what an older and longer file
/// held there. False when it failed; the file is then as it was.
///
/// The new content grows in a file beside it, which then takes its place. Where none can be made
/// there, the file itself is written over, and put back as far as the disk allows when that fails.
/// A file that is a link stays one.
bool writeRecords(Files& files, const std::filesystem::path& file,
                  const std::function<void(RecordStream&)>& write);
/// The same for records that are in memory.
bool writeRecords(Files& files, const std::filesystem::path& file,
                  std::span<const std::byte> records);

}  // namespace quorvel
