#include "storage/SafeWriting.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "storage/Reading.h"

namespace quorvel {

namespace {

/// Names tried for a file beside the one to be written: more than one where another save is under
/// way or a file of an earlier one cannot be removed.
constexpr int besideNames = 4;
/// How often a file that somebody holds is tried to be replaced.
constexpr int replaceAttempts = 6;

/// The name is nobody else's: what stands under it may be removed.
std::filesystem::path besideName(const std::filesystem::path& file, int number) {
    std::filesystem::path name = file;
    name += ".quorvel-new";
    if (number > 1) name += std::to_string(number);
    return name;
}

/// A file being written beside another one. It is removed unless it took that one's place or is to
/// be kept.
class FileBeside {
  public:
    FileBeside(Files& files, const std::filesystem::path& target) : files_(files) {
        for (int number = 1; number <= besideNames && !output_; ++number) {
            name_ = besideName(target, number);
            output_ = files.create(name_, target);
            if (!output_ && !files.exists(name_)) break;
        }
        stays_ = !output_;
    }
    FileBeside(const FileBeside&) = delete;
    FileBeside& operator=(const FileBeside&) = delete;
    ~FileBeside() {
        output_.reset();
        if (!stays_) files_.remove(name_);
    }

    /// Nothing where none could be made.
    OutputFile* output() { return output_.get(); }
    const std::filesystem::path& name() const { return name_; }

    bool putInPlaceOf(const std::filesystem::path& target) {
        output_.reset();  // an open file cannot be moved everywhere
        for (int attempt = 1;; ++attempt) {
            stays_ = files_.replace(name_, target);
            if (stays_ || attempt == replaceAttempts) return stays_;
            files_.pause();
        }
    }
    void keep() { stays_ = true; }

  private:
    Files& files_;
    std::filesystem::path name_;
    std::unique_ptr<OutputFile> output_;
    bool stays_ = false;
};

/// Appends what `old` holds from there on; a file that does not exist holds nothing.
bool appendOldRest(Files& files, const std::filesystem::path& old, OutputFile& file) {
    Files::Opened opened;
    patiently(files, [&] {
        opened = files.openForReading(old, file.length());
        return opened.problem;
    });
    if (!opened.file) return opened.problem == FileProblem::Missing;
    return copyRest(*opened.file, file);
}

enum class InPlace { Written, AsBefore, Torn };

/// Gives a file back what it held before it was written over, or its absence.
InPlace putBack(Files& files, const std::filesystem::path& file, const ReadBytes& old) {
    if (old.problem == FileProblem::Missing)
        return files.remove(file) ? InPlace::AsBefore : InPlace::Torn;
    const auto output = files.openForWriting(file);
    const bool done = output && output->append(old.bytes) && output->cut() && output->flush();
    return done ? InPlace::AsBefore : InPlace::Torn;
}

InPlace writeInPlace(Files& files, const std::filesystem::path& file, OldRest rest,
                     const WriteContent& write) {
    const ReadBytes old = readBytes(files, file);
    if (isUnreadable(old.problem)) return InPlace::AsBefore;
    auto output = files.openForWriting(file);
    if (!output) return InPlace::AsBefore;
    try {
        if (write(*output) && (rest == OldRest::Kept || output->cut()) && output->flush())
            return InPlace::Written;
    } catch (...) {
        output.reset();
        putBack(files, file, old);
        throw;
    }
    output.reset();
    return putBack(files, file, old);
}

/// The file beside it holds the new content and what is to stay of the old one, flushed.
bool fill(Files& files, FileBeside& beside, const std::filesystem::path& target, OldRest rest,
          const WriteContent& write) {
    OutputFile& output = *beside.output();
    return write(output) && (rest == OldRest::Cut || appendOldRest(files, target, output)) &&
           output.flush();
}

bool copyInPlace(Files& files, FileBeside& beside, const std::filesystem::path& target,
                 OldRest rest) {
    const auto content = files.openForReading(beside.name());
    if (!content.file) return false;
    const InPlace result = writeInPlace(
        files, target, rest, [&](OutputFile& output) { return copyRest(*content.file, output); });
    // It is then the only file with the whole content.
    if (result == InPlace::Torn) beside.keep();
    return result == InPlace::Written;
}

bool write(Files& files, const std::filesystem::path& target, OldRest rest,
           const WriteContent& write) {
    FileBeside beside(files, target);
    if (!beside.output()) return writeInPlace(files, target, rest, write) == InPlace::Written;
    return fill(files, beside, target, rest, write) &&
           (beside.putInPlaceOf(target) || copyInPlace(files, beside, target, rest));
}

}  // namespace

bool writeSafely(Files& files, const std::filesystem::path& file, OldRest rest,
                 const WriteContent& content) {
    const std::filesystem::path target = files.followLink(file);
    if (!write(files, target, rest, content)) return false;
    for (int number = 1; number <= besideNames; ++number) files.remove(besideName(target, number));
    return true;
}

}  // namespace quorvel
