#pragma once

#include <algorithm>
#include <map>
#include <memory>
#include <set>
#include <string_view>
#include <utility>

#include "core/ports/Files.h"

namespace quorvel {

/// A file that is in memory.
class BytesInputFile final : public InputFile {
  public:
    explicit BytesInputFile(Bytes bytes) : bytes_(std::move(bytes)) {}

  private:
    std::optional<std::size_t> readSome(std::span<std::byte> target) override {
        const std::size_t count = std::min(target.size(), bytes_.size() - position_);
        std::copy_n(bytes_.begin() + static_cast<std::ptrdiff_t>(position_), count, target.begin());
        position_ += count;
        return count;
    }

    Bytes bytes_;
    std::size_t position_ = 0;
};

/// A disk in memory. Nothing goes wrong on it: what a test wants to fail is put in front of it.
class MemoryFiles final : public Files {
  public:
    std::map<std::filesystem::path, Bytes> files;
    std::set<std::filesystem::path> folders;
    /// While set, no file can be opened for writing.
    bool readOnly = false;

    Opened openForReading(const std::filesystem::path& file, std::uint64_t offset = 0) override {
        if (folders.contains(file)) return {nullptr, FileProblem::Folder};
        const auto found = files.find(file);
        if (found == files.end()) return {nullptr, FileProblem::Missing};
        const Bytes& bytes = found->second;
        const auto start =
            static_cast<std::ptrdiff_t>(std::min<std::uint64_t>(offset, bytes.size()));
        return {std::make_unique<BytesInputFile>(Bytes(bytes.begin() + start, bytes.end()))};
    }
    std::unique_ptr<OutputFile> create(const std::filesystem::path& file,
                                       const std::filesystem::path&) override {
        if (exists(file)) return nullptr;
        return openForWriting(file);
    }
    std::unique_ptr<OutputFile> openForWriting(const std::filesystem::path& file) override {
        if (readOnly || folders.contains(file)) return nullptr;
        return std::make_unique<Output>(files[file]);
    }
    bool replace(const std::filesystem::path& from, const std::filesystem::path& to) override {
        const auto found = files.find(from);
        if (readOnly || found == files.end() || folders.contains(to)) return false;
        Bytes bytes = std::move(found->second);
        files.erase(found);
        files[to] = std::move(bytes);
        return true;
    }
    bool remove(const std::filesystem::path& file) override {
        return !readOnly && files.erase(file) > 0;
    }
    bool copy(const std::filesystem::path& from, const std::filesystem::path& to) override {
        const auto found = files.find(from);
        if (readOnly || found == files.end()) return false;
        files[to] = found->second;
        return true;
    }
    /// Whatever a file's bytes are is the time of its last change: no change goes unseen.
    std::optional<FileStamp> stampOf(const std::filesystem::path& path) override {
        if (folders.contains(path)) return FileStamp{};
        const auto found = files.find(path);
        if (found == files.end()) return std::nullopt;
        const std::string_view text(reinterpret_cast<const char*>(found->second.data()),
                                    found->second.size());
        return FileStamp{text.size(),
                         static_cast<std::int64_t>(std::hash<std::string_view>()(text))};
    }
    bool createFolder(const std::filesystem::path& folder) override {
        folders.insert(folder);
        return true;
    }
    std::vector<std::filesystem::path> list(const std::filesystem::path& folder) override {
        std::vector<std::filesystem::path> found;
        for (const auto& [file, bytes] : files)
            if (file.parent_path() == folder) found.push_back(file);
        return found;
    }
    std::filesystem::path followLink(const std::filesystem::path& file) override { return file; }
    void pause() override {}

  private:
    class Output final : public OutputFile {
      public:
        explicit Output(Bytes& bytes) : bytes_(bytes) {}
        bool cut() override {
            bytes_.resize(static_cast<std::size_t>(length()));
            return true;
        }
        bool flush() override { return true; }

      private:
        std::size_t writeSome(std::span<const std::byte> bytes) override {
            const auto start = static_cast<std::size_t>(length());
            bytes_.resize(std::max(bytes_.size(), start + bytes.size()));
            std::ranges::copy(bytes, bytes_.begin() + static_cast<std::ptrdiff_t>(start));
            return bytes.size();
        }

        Bytes& bytes_;
    };
};

}  // namespace quorvel
