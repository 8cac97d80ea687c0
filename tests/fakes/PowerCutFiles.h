#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <vector>

#include "tests/fakes/MemoryFiles.h"

namespace quorvel {

/// A disk that keeps what was flushed apart from what was not, and knows everything that it may
/// hold once the power went. Bytes that were not flushed are there, missing or there by halves, and
/// so is a new length. Names change in their order, each of them before or after the bytes of its
/// file. Flushing a file makes its own bytes safe and every name so far, as file systems with a
/// journal do.
class PowerCutFiles final : public Files {
  public:
    explicit PowerCutFiles(const MemoryFiles& start);

    /// Called after everything that changes the disk, flushing included.
    std::function<void()> changed = [] {};
    /// Another program has these files open and shares reading and writing, but not their removal.
    std::set<std::filesystem::path> held;
    /// While not set, no file can be made beside another one.
    bool hasRoomBeside = true;

    /// What the disk may hold if the power goes now.
    std::vector<MemoryFiles> afterPowerCut() const;
    /// What it holds if the power does not go.
    MemoryFiles afterwards() const;

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
    std::filesystem::path followLink(const std::filesystem::path& file) override { return file; }
    void pause() override {}

  private:
    class Output;

    struct Content {
        Bytes safe;
        Bytes now;
    };
    using Names = std::map<std::filesystem::path, std::shared_ptr<Content>>;

    static std::vector<Bytes> possibleBytes(const Content& content);
    static std::vector<MemoryFiles> possibleDisks(const Names& names);
    /// The names as they are to be from now on.
    void rename(Names names);

    /// Those that are safe, and after each change since; the last ones are in force.
    std::vector<Names> names_;
};

}  // namespace quorvel
