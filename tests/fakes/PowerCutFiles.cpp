#include "tests/fakes/PowerCutFiles.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace quorvel {

class PowerCutFiles::Output final : public OutputFile {
  public:
    Output(PowerCutFiles& files, std::shared_ptr<Content> content)
        : files_(files), content_(std::move(content)) {}

    bool cut() override {
        content_->now.resize(static_cast<std::size_t>(length()));
        files_.changed();
        return true;
    }

    bool flush() override {
        content_->safe = content_->now;
        files_.names_.erase(files_.names_.begin(), files_.names_.end() - 1);
        files_.changed();
        return true;
    }

  private:
    std::size_t writeSome(std::span<const std::byte> bytes) override {
        Bytes& now = content_->now;
        const auto start = static_cast<std::size_t>(length());
        now.resize(std::max(now.size(), start + bytes.size()));
        std::ranges::copy(bytes, now.begin() + static_cast<std::ptrdiff_t>(start));
        files_.changed();
        return bytes.size();
    }

    PowerCutFiles& files_;
    std::shared_ptr<Content> content_;
};

PowerCutFiles::PowerCutFiles(const MemoryFiles& start) : names_(1) {
    for (const auto& [file, bytes] : start.files)
        names_.back()[file] = std::make_shared<Content>(Content{bytes, bytes});
}

/// The safe bytes with each choice of the two halves of what is not, at either length.
std::vector<Bytes> PowerCutFiles::possibleBytes(const Content& content) {
    const std::span<const std::byte> safe(content.safe);
    const std::span<const std::byte> now(content.now);
    if (std::ranges::equal(safe, now)) return {content.now};
    const std::size_t same =
        static_cast<std::size_t>(std::ranges::mismatch(safe, now).in2 - now.begin());
    const std::size_t middle = same + (now.size() - same) / 2;

    std::vector<Bytes> found;
    for (const std::size_t length : {safe.size(), now.size()}) {
        for (const bool first : {false, true}) {
            for (const bool second : {false, true}) {
                Bytes bytes(std::max(safe.size(), now.size()));
                std::ranges::copy(safe, bytes.begin());
                const auto put = [&](std::size_t from, std::size_t to) {
                    std::ranges::copy(now.subspan(from, to - from),
                                      bytes.begin() + static_cast<std::ptrdiff_t>(from));
                };
                if (first) put(same, middle);
                if (second) put(middle, now.size());
                bytes.resize(length);
                if (std::ranges::find(found, bytes) == found.end())
                    found.push_back(std::move(bytes));
            }
        }
    }
    return found;
}

std::vector<MemoryFiles> PowerCutFiles::possibleDisks(const Names& names) {
    std::vector<MemoryFiles> disks(1);
    for (const auto& [file, content] : names) {
        std::vector<MemoryFiles> grown;
        for (const Bytes& bytes : possibleBytes(*content)) {
            for (const MemoryFiles& disk : disks) {
                grown.push_back(disk);
                grown.back().files[file] = bytes;
            }
        }
        disks = std::move(grown);
    }
    return disks;
}

std::vector<MemoryFiles> PowerCutFiles::afterPowerCut() const {
    std::vector<MemoryFiles> disks;
    for (const Names& names : names_)
        std::ranges::move(possibleDisks(names), std::back_inserter(disks));
    return disks;
}

MemoryFiles PowerCutFiles::afterwards() const {
    MemoryFiles disk;
    for (const auto& [file, content] : names_.back()) disk.files[file] = content->now;
    return disk;
}

void PowerCutFiles::rename(Names names) {
    names_.push_back(std::move(names));
    changed();
}

Files::Opened PowerCutFiles::openForReading(const std::filesystem::path& file,
                                            std::uint64_t offset) {
    return afterwards().openForReading(file, offset);
}

std::unique_ptr<OutputFile> PowerCutFiles::create(const std::filesystem::path& file,
                                                  const std::filesystem::path&) {
    if (!hasRoomBeside || exists(file)) return nullptr;
    return openForWriting(file);
}

std::unique_ptr<OutputFile> PowerCutFiles::openForWriting(const std::filesystem::path& file) {
    if (!exists(file)) {
        Names names = names_.back();
        names[file] = std::make_shared<Content>();
        rename(std::move(names));
    }
    return std::make_unique<Output>(*this, names_.back().at(file));
}

bool PowerCutFiles::replace(const std::filesystem::path& from, const std::filesystem::path& to) {
    if (!exists(from) || held.contains(from) || held.contains(to)) return false;
    Names names = names_.back();
    names[to] = names.at(from);
    names.erase(from);
    rename(std::move(names));
    return true;
}

bool PowerCutFiles::remove(const std::filesystem::path& file) {
    if (!exists(file) || held.contains(file)) return false;
    Names names = names_.back();
    names.erase(file);
    rename(std::move(names));
    return true;
}

bool PowerCutFiles::copy(const std::filesystem::path&, const std::filesystem::path&) {
    return false;
}

std::optional<FileStamp> PowerCutFiles::stampOf(const std::filesystem::path& path) {
    return afterwards().stampOf(path);
}

bool PowerCutFiles::createFolder(const std::filesystem::path&) {
    return true;
}

std::vector<std::filesystem::path> PowerCutFiles::list(const std::filesystem::path& folder) {
    return afterwards().list(folder);
}

}  // namespace quorvel
