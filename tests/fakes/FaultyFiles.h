#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <vector>

#include "core/ports/Files.h"

namespace quorvel {

/// A disk on which something goes wrong, in front of one on which nothing does. Every call that a
/// real disk could refuse is an operation; they are counted from 1.
class FaultyFiles final : public Files {
  public:
    enum class Fault {
        Fail,      // the operation does nothing and says so
        Shorten,   // half of what is to be written is, and it fails; other operations just fail
        PowerCut,  // the operation works, then the power goes: what was not flushed is lost, and
                   // nothing that is done afterwards reaches the disk
    };

    /// `disk` must outlive this one.
    explicit FaultyFiles(Files& disk) : disk_(disk) {}

    /// Counts from here on; operation number `operation` goes wrong (0: none).
    void breakAt(int operation, Fault fault);
    int operations() const { return operations_; }
    bool powerIsOut() const { return powerIsOut_; }

    /// Nothing can be written into these folders.
    std::set<std::filesystem::path> protectedFolders;

    std::optional<Bytes> read(const std::filesystem::path& file, std::uint64_t limit) override;
    std::optional<Bytes> readFrom(const std::filesystem::path& file, std::uint64_t offset) override;
    std::unique_ptr<OutputFile> open(const std::filesystem::path& file, OpenMode mode) override;
    bool replace(const std::filesystem::path& from, const std::filesystem::path& to) override;
    bool remove(const std::filesystem::path& file) override;
    bool exists(const std::filesystem::path& path) override;
    bool createFolder(const std::filesystem::path& folder) override;
    std::vector<std::filesystem::path> list(const std::filesystem::path& folder,
                                            std::string_view ending) override;
    std::filesystem::path followLink(const std::filesystem::path& file) override;

  private:
    class Output;

    /// Counts an operation; the fault that stops it, or nothing when it is to be carried out.
    std::optional<Fault> begin();
    /// Ends an operation that was carried out.
    void end();
    template <typename Operation>
    auto carryOut(Operation operation) -> decltype(operation());
    bool isProtected(const std::filesystem::path& file) const;
    void loseWhatWasNotFlushed();

    Files& disk_;
    int operations_ = 0;
    int brokenOperation_ = 0;
    Fault fault_ = Fault::Fail;
    bool powerIsOut_ = false;
    /// Of each file that was made anew, how much is safe.
    std::map<std::filesystem::path, std::uint64_t> flushedSizes_;
};

}  // namespace quorvel
