#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace quorvel {

using Bytes = std::vector<std::byte>;

/// Why a file could not be read.
enum class FileProblem {
    None,
    Missing,     // there is no such file
    Folder,      // it is a folder
    Refused,     // its access rights do not allow it
    InUse,       // another program has it open and does not share it
    Unreadable,  // anything else: the disk, the network, a reading that broke off
};

/// True for a file that is there and cannot be read: unlike a missing one it is not empty.
constexpr bool isUnreadable(FileProblem problem) {
    return problem != FileProblem::None && problem != FileProblem::Missing;
}

/// A file being read. Destroying it closes it.
class InputFile {
  public:
    virtual ~InputFile() = default;

    /// Fills `target` from where the last call stopped. The number of bytes that it got, fewer than
    /// asked for only at the end of the file; nothing where it cannot be read any further.
    std::optional<std::size_t> read(std::span<std::byte> target) {
        std::size_t filled = 0;
        while (filled < target.size()) {
            const auto count = readSome(target.subspan(filled));
            if (!count) return std::nullopt;
            if (*count == 0) break;
            filled += *count;
        }
        return filled;
    }

  private:
    /// Reads at least one byte; 0 at the end of the file, nothing on failure.
    virtual std::optional<std::size_t> readSome(std::span<std::byte> target) = 0;
};

/// A file being written from its start. Destroying it closes it.
class OutputFile {
  public:
    virtual ~OutputFile() = default;

    /// False when not all bytes could be written.
    bool append(std::span<const std::byte> bytes) {
        while (!bytes.empty()) {
            // A full disk is sometimes told by a short count alone.
            const std::size_t count = writeSome(bytes);
            if (count == 0) return false;
            bytes = bytes.subspan(count);
            length_ += count;
        }
        return true;
    }
    /// Ends the file behind what was written; false when that failed.
    virtual bool cut() = 0;
    /// Brings everything to the disk; false when that failed.
    virtual bool flush() = 0;
    /// The number of bytes written.
    std::uint64_t length() const { return length_; }

  private:
    /// Writes at least one byte; 0 on failure.
    virtual std::size_t writeSome(std::span<const std::byte> bytes) = 0;

    std::uint64_t length_ = 0;
};

/// Tells one state of a file from another: its length and the time of its last change, in the
/// system's own units.
struct FileStamp {
    std::uint64_t length = 0;
    std::int64_t time = 0;

    bool operator==(const FileStamp&) const = default;
};

/// The one layer that every file operation goes through. Failures are return values: what a
/// failure means is the caller's to say. Paths are absolute.
class Files {
  public:
    struct Opened {
        std::unique_ptr<InputFile> file;
        FileProblem problem = FileProblem::None;
    };

    /// How long pause() waits.
    static constexpr std::chrono::milliseconds moment{25};

    virtual ~Files() = default;

    /// Opens a file for reading from `offset` on; behind its end there is nothing to read. Others
    /// may do with it what they like meanwhile. Without a file there is a problem.
    virtual Opened openForReading(const std::filesystem::path& file, std::uint64_t offset = 0) = 0;
    /// Makes a new file, which nobody else may remove while it is open. Where `model` is a file, it
    /// is given what that has beside its bytes, before it has any itself: attributes, access list
    /// and encryption, or mode, owner and group as far as allowed. Nothing where something of this
    /// name stands already, or where the new file would be less protected than `model`.
    virtual std::unique_ptr<OutputFile> create(const std::filesystem::path& file,
                                               const std::filesystem::path& model) = 0;
    /// Opens a file to be written over; it is made where it is missing, and keeps its bytes behind
    /// those that are written. Others may have it open as well. Nothing when it cannot be written.
    virtual std::unique_ptr<OutputFile> openForWriting(const std::filesystem::path& file) = 0;
    /// Puts `from` in the place of `to` in one step; `to` may exist. A write-protected file stays.
    virtual bool replace(const std::filesystem::path& from, const std::filesystem::path& to) = 0;
    /// Removes a file that nobody has open; false when it is still there.
    virtual bool remove(const std::filesystem::path& file) = 0;
    /// Copies a file over an older one; false when that failed.
    virtual bool copy(const std::filesystem::path& from, const std::filesystem::path& to) = 0;
    /// Nothing where there is no file or folder of this name. Looks at a file that is locked, too.
    virtual std::optional<FileStamp> stampOf(const std::filesystem::path& path) = 0;
    virtual bool createFolder(const std::filesystem::path& folder) = 0;
    /// The files of a folder, without its subfolders, in any order. Empty when it cannot be read.
    virtual std::vector<std::filesystem::path> list(const std::filesystem::path& folder) = 0;
    /// What `file` leads to where it is a link, so that what is put into its place goes there; else
    /// `file` itself.
    virtual std::filesystem::path followLink(const std::filesystem::path& file) = 0;
    /// Waits a moment, in which whoever holds a file may let go of it.
    virtual void pause() = 0;

    bool exists(const std::filesystem::path& path) { return stampOf(path).has_value(); }
};

}  // namespace quorvel
