#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
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
    explicit RecordReader(std::span<const std::byte> bytes) : bytes_(bytes) {}

    std::int16_t integer();
    std::string text();
    TaggedValue taggedValue();
    /// True once the next record would start at or behind the end of the bytes.
    bool atEnd() const { return position_ >= bytes_.size(); }

  private:
    std::span<const std::byte> nextRecord();

    std::span<const std::byte> bytes_;
    std::size_t position_ = 0;
};

/// Writes values into records in order, into memory. The unused rest of a record is zeros. A text
/// too long for its record is cut.
class RecordWriter {
  public:
    void integer(std::int16_t value);
    void text(std::string_view value);
    void taggedValue(const TaggedValue& value);

    std::span<const std::byte> bytes() const { return bytes_; }

  private:
    Bytes bytes_;
};

/// Puts records into `file` so that at any moment, crashes included, it holds either its old bytes
/// or the new ones: `records` and, behind them, what an older and longer file held there. False when
/// nothing was changed.
bool writeRecords(Files& files, const std::filesystem::path& file,
                  std::span<const std::byte> records);

}  // namespace quorvel
