#pragma once

#include "core/ports/Files.h"

namespace quorvel {

/// The file layer of the native tools and tests.
class PosixFiles final : public Files {
  public:
    std::optional<Bytes> read(const std::filesystem::path& file,
                              std::uint64_t limit = UINT64_MAX) override;
    std::optional<Bytes> readFrom(const std::filesystem::path& file, std::uint64_t offset) override;
    std::unique_ptr<InputFile> openForReading(const std::filesystem::path& file) override;
    /// A file that nobody may write is not opened, even for those whom the system would let.
    std::unique_ptr<OutputFile> open(const std::filesystem::path& file, OpenMode mode) override;
    /// The new file takes over the permissions of the old one. A write-protected file stays.
    bool replace(const std::filesystem::path& from, const std::filesystem::path& to) override;
    bool remove(const std::filesystem::path& file) override;
    bool exists(const std::filesystem::path& path) override;
    bool createFolder(const std::filesystem::path& folder) override;
    std::vector<std::filesystem::path> list(const std::filesystem::path& folder,
                                            std::string_view ending) override;
    std::filesystem::path followLink(const std::filesystem::path& file) override;
};

}  // namespace quorvel
