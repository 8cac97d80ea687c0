#include "tests/fakes/FaultyFiles.h"

#include <utility>

namespace quorvel {

class FaultyFiles::Output final : public OutputFile {
  public:
    Output(FaultyFiles& files, std::filesystem::path name, std::unique_ptr<OutputFile> file)
        : files_(files), name_(std::move(name)), file_(std::move(file)) {}

    bool append(std::span<const std::byte> bytes) override {
        if (const auto fault = files_.begin()) {
            if (*fault == Fault::Shorten) file_->append(bytes.first(bytes.size() / 2));
            return false;
        }
        const bool written = file_->append(bytes);
        size_ += bytes.size();
        files_.end();
        return written;
    }

    bool flush() override {
        if (files_.begin()) return false;
        const bool flushed = file_->flush();
        const auto known = files_.flushedSizes_.find(name_);
        if (known != files_.flushedSizes_.end()) known->second = size_;
        files_.end();
        return flushed;
    }

  private:
    FaultyFiles& files_;
    std::filesystem::path name_;
    std::unique_ptr<OutputFile> file_;
    std::uint64_t size_ = 0;
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

template <typename Operation>
auto FaultyFiles::carryOut(Operation operation) -> decltype(operation()) {
    if (begin()) return {};
    auto result = operation();
    end();
    return result;
}

bool FaultyFiles::isProtected(const std::filesystem::path& file) const {
    return protectedFolders.contains(file.parent_path());
}

void FaultyFiles::loseWhatWasNotFlushed() {
    for (const auto& [file, size] : flushedSizes_) {
        const auto kept = disk_.read(file, size);
        if (!kept) continue;
        disk_.open(file, OpenMode::Replace)->append(*kept);
    }
}

std::optional<Bytes> FaultyFiles::read(const std::filesystem::path& file, std::uint64_t limit) {
    return carryOut([&] { return disk_.read(file, limit); });
}

std::optional<Bytes> FaultyFiles::readFrom(const std::filesystem::path& file,
                                           std::uint64_t offset) {
    return carryOut([&] { return disk_.readFrom(file, offset); });
}

std::unique_ptr<OutputFile> FaultyFiles::open(const std::filesystem::path& file, OpenMode mode) {
    return carryOut([&]() -> std::unique_ptr<OutputFile> {
        if (isProtected(file)) return nullptr;
        auto output = disk_.open(file, mode);
        if (!output) return nullptr;
        if (mode == OpenMode::Replace) flushedSizes_[file] = 0;
        return std::make_unique<Output>(*this, file, std::move(output));
    });
}

bool FaultyFiles::replace(const std::filesystem::path& from, const std::filesystem::path& to) {
    return carryOut([&] {
        if (isProtected(to) || !disk_.replace(from, to)) return false;
        flushedSizes_.erase(to);
        if (auto size = flushedSizes_.extract(from)) {
            size.key() = to;
            flushedSizes_.insert(std::move(size));
        }
        return true;
    });
}

bool FaultyFiles::remove(const std::filesystem::path& file) {
    return carryOut([&] {
        flushedSizes_.erase(file);
        return !isProtected(file) && disk_.remove(file);
    });
}

bool FaultyFiles::exists(const std::filesystem::path& path) {
    return carryOut([&] { return disk_.exists(path); });
}

bool FaultyFiles::createFolder(const std::filesystem::path& folder) {
    return carryOut([&] { return disk_.createFolder(folder); });
}

std::vector<std::filesystem::path> FaultyFiles::list(const std::filesystem::path& folder,
                                                     std::string_view ending) {
    return carryOut([&] { return disk_.list(folder, ending); });
}

std::filesystem::path FaultyFiles::followLink(const std::filesystem::path& file) {
    return disk_.followLink(file);
}

}  // namespace quorvel
