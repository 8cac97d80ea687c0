#pragma once

#include "core/ports/Files.h"

namespace quorvel {

/// A disk that can be filled up: while it is full, files can be made but nothing can be written
/// into them.
class FullDiskFiles final : public Files {
  public:
    explicit FullDiskFiles(Files& disk) : disk_(disk) {}

    bool full = false;

    std::optional<Bytes> read(const std::filesystem::path& file, std::uint64_t limit) override {
        return disk_.read(file, limit);
    }
    std::optional<Bytes> readFrom(const std::filesystem::path& file,
                                  std::uint64_t offset) override {
        return disk_.readFrom(file, offset);
    }
    std::unique_ptr<OutputFile> open(const std::filesystem::path& file, OpenMode mode) override {
        auto output = disk_.open(file, mode);
        if (output == nullptr) return nullptr;
        return std::make_unique<Output>(std::move(output), *this);
    }
    bool replace(const std::filesystem::path& from, const std::filesystem::path& to) override {
        return disk_.replace(from, to);
    }
    bool remove(const std::filesystem::path& file) override { return disk_.remove(file); }
    bool exists(const std::filesystem::path& path) override { return disk_.exists(path); }
    bool createFolder(const std::filesystem::path& folder) override {
        return disk_.createFolder(folder);
    }
    std::vector<std::filesystem::path> list(const std::filesystem::path& folder,
                                            std::string_view ending) override {
        return disk_.list(folder, ending);
    }
    std::filesystem::path followLink(const std::filesystem::path& file) override {
        return disk_.followLink(file);
    }

  private:
    class Output final : public OutputFile {
      public:
        Output(std::unique_ptr<OutputFile> output, const FullDiskFiles& disk)
            : output_(std::move(output)), disk_(disk) {}
        bool append(std::span<const std::byte> bytes) override {
            return !disk_.full && output_->append(bytes);
        }
        bool flush() override { return output_->flush(); }

      private:
        std::unique_ptr<OutputFile> output_;
        const FullDiskFiles& disk_;
    };

    Files& disk_;
};

}  // namespace quorvel
