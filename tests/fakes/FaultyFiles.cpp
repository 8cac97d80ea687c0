#include "tests/fakes/FaultyFiles.h"

#include <utility>

namespace quorvel {

class FaultyFiles::Input final : public InputFile {
  public:
    Input(FaultyFiles& files, std::unique_ptr<InputFile> file)
        : files_(files), file_(std::move(file)) {}

  private:
    std::optional<std::size_t> readSome(std::span<std::byte> target) override {
        if (brokenOff_) return std::nullopt;
        if (const auto fault = files_.begin()) {
            brokenOff_ = true;
            if (*fault == Fault::Fail || target.size() < 2) return std::nullopt;
            return file_->read(target.first(target.size() / 2));
        }
        const auto count = file_->read(target);
        files_.end();
        return count;
    }

    FaultyFiles& files_;
    std::unique_ptr<InputFile> file_;
    bool brokenOff_ = false;
};

class FaultyFiles::Output final : public OutputFile {
  public:
    Output(FaultyFiles& files, std::filesystem::path name, std::unique_ptr<OutputFile> file)
        : files_(files), name_(std::move(name)), file_(std::move(file)) {}

    bool cut() override {
        return files_.carryOut([&] { return file_->cut(); }, false);
    }

    bool flush() override {
        if (files_.begin()) return false;
        const bool flushed = file_->flush();
        const auto known = files_.flushedSizes_.find(name_);
        if (known != files_.flushedSizes_.end()) known->second = length();
        files_.end();
        return flushed;
    }

  private:
    std::size_t writeSome(std::span<const std::byte> bytes) override {
        if (const auto fault = files_.begin()) {
            if (*fault == Fault::Shorten) file_->append(bytes.first(bytes.size() / 2));
            return 0;
        }
        const bool written = !files_.full && file_->append(bytes);
        files_.end();
        return written ? bytes.size() : 0;
    }

    FaultyFiles& files_;
    std::filesystem::path name_;
    std::unique_ptr<OutputFile> file_;
};

void FaultyFiles::breakAt(int operation, Fault fault) {
    operations_ = 0;
    brokenOperation_ = operation;
    fault_ = fault;
    powerIsOut_ = false;
    flushedSizes_.clear();
}

std::optional<FaultyFiles::Fault> FaultyFiles::begin() {
    ++operations_;
    if (powerIsOut_) return Fault::Fail;
    if (operations_ == brokenOperation_ && fault_ != Fault::PowerCut) return fault_;
    return std::nullopt;
}

void FaultyFiles::end() {
    if (operations_ == brokenOperation_ && fault_ == Fault::PowerCut) {
        powerIsOut_ = true;
        loseWhatWasNotFlushed();
    }
}

template <typename Operation, typename Result>
Result FaultyFiles::carryOut(Operation operation, Result failed) {
    if (begin()) return failed;
    Result result = operation();
    end();
    return result;
}

bool FaultyFiles::isProtected(const std::filesystem::path& file) const {
    return protectedFolders.contains(file.parent_path());
}

bool FaultyFiles::isImmovable(const std::filesystem::path& file) const {
    return isProtected(file) || locked.contains(file) || held.contains(file);
}

void FaultyFiles::loseWhatWasNotFlushed() {
    for (const auto& [file, size] : flushedSizes_) {
        const auto opened = disk_.openForReading(file);
        if (!opened.file) continue;
        Bytes kept(static_cast<std::size_t>(size));
        opened.file->read(kept);
        const auto output = disk_.openForWriting(file);
        output->append(kept);
        output->cut();
    }
}

Files::Opened FaultyFiles::openForReading(const std::filesystem::path& file, std::uint64_t offset) {
    return carryOut(
        [&]() -> Opened {
            if (locked.contains(file)) return {nullptr, FileProblem::InUse};
            Opened opened = disk_.openForReading(file, offset);
            if (opened.file) opened.file = std::make_unique<Input>(*this, std::move(opened.file));
            return opened;
        },
        Opened{nullptr, FileProblem::Unreadable});
}

std::unique_ptr<OutputFile> FaultyFiles::outputOf(const std::filesystem::path& file,
                                                  std::unique_ptr<OutputFile> output) {
    if (!output) return nullptr;
    return std::make_unique<Output>(*this, file, std::move(output));
}

std::unique_ptr<OutputFile> FaultyFiles::create(const std::filesystem::path& file,
                                                const std::filesystem::path& model) {
    return carryOut(
        [&]() -> std::unique_ptr<OutputFile> {
            if (isProtected(file)) return nullptr;
            auto output = outputOf(file, disk_.create(file, model));
            if (output) flushedSizes_[file] = 0;
            return output;
        },
        std::unique_ptr<OutputFile>());
}

std::unique_ptr<OutputFile> FaultyFiles::openForWriting(const std::filesystem::path& file) {
    return carryOut(
        [&]() -> std::unique_ptr<OutputFile> {
            if (isProtected(file) || locked.contains(file)) return nullptr;
            return outputOf(file, disk_.openForWriting(file));
        },
        std::unique_ptr<OutputFile>());
}

bool FaultyFiles::replace(const std::filesystem::path& from, const std::filesystem::path& to) {
    return carryOut(
        [&] {
            if (isImmovable(from) || isImmovable(to) || !disk_.replace(from, to)) return false;
            flushedSizes_.erase(to);
            if (auto size = flushedSizes_.extract(from)) {
                size.key() = to;
                flushedSizes_.insert(std::move(size));
            }
            return true;
        },
        false);
}

bool FaultyFiles::remove(const std::filesystem::path& file) {
    return carryOut(
        [&] {
            if (isImmovable(file) || !disk_.remove(file)) return false;
            flushedSizes_.erase(file);
            return true;
        },
        false);
}

bool FaultyFiles::copy(const std::filesystem::path& from, const std::filesystem::path& to) {
    copies.push_back({from, to});
    return carryOut(
        [&] {
            if (!copiesAreKept || locked.contains(from) || isImmovable(to)) return false;
            return disk_.copy(from, to);
        },
        false);
}

std::optional<FileStamp> FaultyFiles::stampOf(const std::filesystem::path& path) {
    return carryOut([&] { return disk_.stampOf(path); }, std::optional<FileStamp>());
}

bool FaultyFiles::createFolder(const std::filesystem::path& folder) {
    return carryOut([&] { return disk_.createFolder(folder); }, false);
}

std::vector<std::filesystem::path> FaultyFiles::list(const std::filesystem::path& folder) {
    return carryOut([&] { return disk_.list(folder); }, std::vector<std::filesystem::path>());
}

std::filesystem::path FaultyFiles::followLink(const std::filesystem::path& file) {
    return carryOut([&] { return disk_.followLink(file); }, file);
}

void FaultyFiles::pause() {
    if (pausesUntilReleased == 0 || --pausesUntilReleased > 0) return;
    locked.clear();
    held.clear();
}

}  // namespace quorvel
