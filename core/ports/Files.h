#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace quorvel {

using Bytes = std::vector<std::byte>;

/// A file being read from its start. Destroying it closes it.
class InputFile {
  public:
    virtual ~InputFile() = default;
    /// Fills `target` from where the last call stopped. The number of bytes it got: fewer than
    /// asked for only at the end of the file, or where it cannot be read any further.
    virtual std::size_t read(std::span<std::byte> target) = 0;
};

/// A file being written. Destroying it closes it.
class OutputFile {
  public:
    virtual ~OutputFile() = default;
    /// False when not all bytes could be written.
    virtual bool append(std::span<const std::byte> bytes) = 0;
    /// Brings everything to the disk; false when that failed.
    virtual bool flush() = 0;
};

/// The one layer that every file operation goes through. Failures are return values: what a
/// failure means is the caller's to say. Paths are absolute.
class Files {
  public:
    enum class OpenMode {
        Replace,    // an empty file, an existing one is emptied
        WriteOver,  // an existing file keeps its bytes behind those that are written
    };

    virtual ~Files() = default;

    /// The whole file, or its first `limit` bytes; nothing when it cannot be read.
    virtual std::optional<Bytes> read(const std::filesystem::path& file,
                                      std::uint64_t limit = UINT64_MAX) = 0;
    /// The bytes from `offset` on, empty behind the end; nothing when it cannot be read.
    virtual std::optional<Bytes> readFrom(const std::filesystem::path& file,
                                          std::uint64_t offset) = 0;
    /// Nothing when the file cannot be read. Without an own way of reading piece by piece this
    /// reads the whole file at once.
    virtual std::unique_ptr<InputFile> openForReading(const std::filesystem::path& file);
    /// Nothing when the file cannot be opened for writing.
    virtual std::unique_ptr<OutputFile> open(const std::filesystem::path& file, OpenMode mode) = 0;
    /// Puts `from` in the place of `to` in one step; `to` may exist.
    virtual bool replace(const std::filesystem::path& from, const std::filesystem::path& to) = 0;
    virtual bool remove(const std::filesystem::path& file) = 0;
    virtual bool exists(const std::filesystem::path& path) = 0;
    virtual bool createFolder(const std::filesystem::path& folder) = 0;
    /// The files of a folder (not its subfolders) whose names end with `ending`, such as ".qrv", in
    /// any case; in the order of their names. Empty when the folder cannot be read.
    virtual std::vector<std::filesystem::path> list(const std::filesystem::path& folder,
                                                    std::string_view ending) = 0;
    /// What `file` leads to where it is a link, so that what is put into its place goes there; else
    /// `file` itself.
    virtual std::filesystem::path followLink(const std::filesystem::path& file) { return file; }
};

/// A file that is in memory.
class BytesInputFile final : public InputFile {
  public:
    explicit BytesInputFile(Bytes bytes) : bytes_(std::move(bytes)) {}

    std::size_t read(std::span<std::byte> target) override {
        const std::size_t count = std::min(target.size(), bytes_.size() - position_);
        std::copy_n(bytes_.begin() + static_cast<std::ptrdiff_t>(position_), count, target.begin());
        position_ += count;
        return count;
    }

  private:
    Bytes bytes_;
    std::size_t position_ = 0;
};

inline std::unique_ptr<InputFile> Files::openForReading(const std::filesystem::path& file) {
    auto bytes = read(file);
    if (!bytes) return nullptr;
    return std::make_unique<BytesInputFile>(std::move(*bytes));
}

}  // namespace quorvel
