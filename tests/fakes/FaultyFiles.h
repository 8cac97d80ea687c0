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

/// A disk on which something goes wrong, in front of one on which nothing does: one operation
/// fails, the disk is full, other programs have files open. Every call that a real disk could
/// refuse is an operation; they are counted from 1.
class FaultyFiles : public Files {
  public:
    enum class Fault {
        Fail,      // the operation does nothing and says so
        Shorten,   // half of what is to be read or written is, and then it fails
        PowerCut,  // the operation works, then the power goes: what was not flushed is lost, and
                   // nothing that is done afterwards reaches the disk
    };
    struct Copy {
        std::filesystem::path from;
        std::filesystem::path to;
        bool operator==(const Copy&) const = default;
    };

    /// `disk` must outlive this one.
    explicit FaultyFiles(Files& disk) : disk_(disk) {}

    /// Counts from here on; operation number `operation` goes wrong (0: none).
    void breakAt(int operation, Fault fault);
    int operations() const { return operations_; }
    bool powerIsOut() const { return powerIsOut_; }

    /// While set, files can be made but nothing can be written into them.
    bool full = false;
    /// Nothing can be written into these folders.
    std::set<std::filesystem::path> protectedFolders;
    /// Another program has these files open and shares nothing.
    std::set<std::filesystem::path> locked;
    /// Another program has these files open and shares reading and writing, but not their removal.
    std::set<std::filesystem::path> held;
    /// The pauses after which the other programs close what they have open; 0 for never.
    int pausesUntilReleased = 0;
    /// The copies asked for; while `copiesAreKept` is not set, none is made and each fails.
    std::vector<Copy> copies;
    bool copiesAreKept = true;

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

  private:
    class Input;
    class Output;

    /// Counts an operation; the fault that stops it, or nothing when it is to be carried out.
    std::optional<Fault> begin();
    /// Ends an operation that was carried out.
    void end();
    /// The operation's result, or `failed` where a fault stops it.
    template <typename Operation, typename Result>
    Result carryOut(Operation operation, Result failed);
    bool isProtected(const std::filesystem::path& file) const;
    bool isImmovable(const std::filesystem::path& file) const;
    std::unique_ptr<OutputFile> outputOf(const std::filesystem::path& file,
                                         std::unique_ptr<OutputFile> output);
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
