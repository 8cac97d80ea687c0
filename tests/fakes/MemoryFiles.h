#pragma once

#include <algorithm>
#include <cctype>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "core/ports/Files.h"

namespace quorvel {

/// A disk in memory. It keeps whole files only: what a test wants to fail or to be cut short is
/// put in front of it.
class MemoryFiles final : public Files {
  public:
    std::map<std::filesystem::path, Bytes> files;
    std::set<std::filesystem::path> folders;
    /// While set, no file can be opened for writing.
    bool readOnly = false;

    std::optional<Bytes> read(const std::filesystem::path& file, std::uint64_t limit) override {
        const auto found = files.find(file);
        if (found == files.end()) return std::nullopt;
        const auto length =
            static_cast<std::ptrdiff_t>(std::min<std::uint64_t>(limit, found->second.size()));
        return Bytes(found->second.begin(), found->second.begin() + length);
    }
    std::optional<Bytes> readFrom(const std::filesystem::path& file,
                                  std::uint64_t offset) override {
        const auto found = files.find(file);
        if (found == files.end()) return std::nullopt;
        const auto start =
            static_cast<std::ptrdiff_t>(std::min<std::uint64_t>(offset, found->second.size()));
        return Bytes(found->second.begin() + start, found->second.end());
    }
    std::unique_ptr<OutputFile> open(const std::filesystem::path& file, OpenMode mode) override {
        if (readOnly) return nullptr;
        Bytes& bytes = files[file];
        if (mode == OpenMode::Replace) bytes.clear();
        return std::make_unique<Output>(bytes);
    }
    bool replace(const std::filesystem::path& from, const std::filesystem::path& to) override {
        const auto found = files.find(from);
        if (readOnly || found == files.end()) return false;
        Bytes bytes = std::move(found->second);
        files.erase(found);
        files[to] = std::move(bytes);
        return true;
    }
    bool remove(const std::filesystem::path& file) override {
        return !readOnly && files.erase(file) > 0;
    }
    bool exists(const std::filesystem::path& path) override {
        return files.contains(path) || folders.contains(path);
    }
    bool createFolder(const std::filesystem::path& folder) override {
        return folders.insert(folder).second;
    }
    std::vector<std::filesystem::path> list(const std::filesystem::path& folder,
                                            std::string_view ending) override {
        std::vector<std::filesystem::path> found;
        for (const auto& [file, bytes] : files)
            if (file.parent_path() == folder &&
                lowerCase(file.filename().string()).ends_with(lowerCase(std::string(ending))))
                found.push_back(file);
        return found;
    }

  private:
    class Output final : public OutputFile {
      public:
        explicit Output(Bytes& bytes) : bytes_(bytes) {}
        bool append(std::span<const std::byte> bytes) override {
            bytes_.resize(std::max(bytes_.size(), position_ + bytes.size()));
            std::ranges::copy(bytes, bytes_.begin() + static_cast<std::ptrdiff_t>(position_));
            position_ += bytes.size();
            return true;
        }
        bool flush() override { return true; }

      private:
        Bytes& bytes_;
        std::size_t position_ = 0;
    };

    static std::string lowerCase(std::string text) {
        for (char& character : text)
            character = static_cast<char>(std::tolower(static_cast<unsigned char>(character)));
        return text;
    }
};

}  // namespace quorvel
