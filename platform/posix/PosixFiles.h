#pragma once

#include "core/ports/Files.h"

namespace quorvel {

/// The file layer of the native tools and tests. A file that nobody may write is not written, even
/// for those whom the system would let.
class PosixFiles final : public Files {
  public:
    Opened openForReading(const std::filesystem::path& file, std::uint64_t offset = 0) override;
    std::unique_ptr<OutputFile> create(const std::filesystem::path& file,
                                       const std::filesystem::path& model) override;
    std::unique_ptr<OutputFile> openForWriting(const std::filesystem::path& file) override;
    bool replace(const std::filesystem::path& from, const std::filesystem::path& to) override;
    bool remove(const std::filesystem::path& file) override;
    bool copy(const std::filesystem::path& from, const std::filesystem::path& to) override;
    std::optional<FileStamp> stampOf(const std::filesystem::path& path) override;
    bool createFolder(const std::filesystem::path& folder) override;
    std::vector<std::filesystem::path> list(const std::filesystem::path& folder) override;
    std::filesystem::path followLink(const std::filesystem::path& file) override;
    void pause() override;
};

}  // namespace quorvel
