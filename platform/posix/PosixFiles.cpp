#include "platform/posix/PosixFiles.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <string>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quorvel {

namespace {

constexpr mode_t newFileMode = 0666;
constexpr mode_t permissionBits = 07777;
constexpr mode_t anyWriteBit = S_IWUSR | S_IWGRP | S_IWOTH;
/// How many links in a row are followed before they count as a circle.
constexpr int longestLinkChain = 40;
/// What is read at a time behind the size that a file told.
constexpr std::size_t furtherStep = 4096;

/// One open file; -1 for none.
class Descriptor {
  public:
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&&) = delete;
    ~Descriptor() {
        if (isOpen()) ::close(number_);
    }

    bool isOpen() const { return number_ >= 0; }
    int number() const { return number_; }

  private:
    int number_;
};

/// Repeats a system call that a signal interrupted.
template <typename Call>
auto uninterrupted(Call call) {
    auto result = call();
    while (result < 0 && errno == EINTR) result = call();
    return result;
}

Descriptor openDescriptor(const std::filesystem::path& file, int flags) {
    return Descriptor(
        uninterrupted([&] { return ::open(file.c_str(), flags | O_CLOEXEC, newFileMode); }));
}

/// Fills `target`, or what of it the file has; nothing on failure.
std::optional<std::size_t> readInto(const Descriptor& file, std::span<std::byte> target) {
    std::size_t filled = 0;
    while (filled < target.size()) {
        const ssize_t count = uninterrupted(
            [&] { return ::read(file.number(), target.data() + filled, target.size() - filled); });
        if (count < 0) return std::nullopt;
        if (count == 0) break;
        filled += static_cast<std::size_t>(count);
    }
    return filled;
}

/// The size that the system tells, from the current position to the end; 0 where it knows none.
std::uint64_t sizeFrom(const Descriptor& file, std::uint64_t offset) {
    struct stat status {};
    if (::fstat(file.number(), &status) != 0 || status.st_size < 0) return 0;
    const auto size = static_cast<std::uint64_t>(status.st_size);
    return size > offset ? size - offset : 0;
}

/// The bytes from the current position on, at most `limit`. The size told is only a first guess:
/// the file may change meanwhile, or be none that has a size.
std::optional<Bytes> readRest(const Descriptor& file, std::uint64_t sizeTold, std::uint64_t limit) {
    Bytes bytes(static_cast<std::size_t>(std::min(sizeTold, limit)));
    const auto filled = readInto(file, bytes);
    if (!filled) return std::nullopt;
    bytes.resize(*filled);

    std::array<std::byte, furtherStep> further;
    while (bytes.size() < limit) {
        const std::uint64_t room = std::min<std::uint64_t>(further.size(), limit - bytes.size());
        const auto count = readInto(file, std::span(further).first(room));
        if (!count) return std::nullopt;
        if (*count == 0) break;
        bytes.insert(bytes.end(), further.begin(), further.begin() + *count);
    }
    return bytes;
}

bool isWriteProtected(const std::filesystem::path& file) {
    struct stat status {};
    if (::stat(file.c_str(), &status) != 0) return false;
    return (status.st_mode & anyWriteBit) == 0 || ::access(file.c_str(), W_OK) != 0;
}

/// Without this a crash could bring the old name back, though never a mixture. A file system that
/// cannot do it is no reason to call the file not written.
void flushFolderOf(const std::filesystem::path& file) {
    const std::filesystem::path folder = file.has_parent_path() ? file.parent_path() : ".";
    const Descriptor descriptor = openDescriptor(folder, O_RDONLY | O_DIRECTORY);
    if (descriptor.isOpen()) ::fsync(descriptor.number());
}

class PosixInputFile final : public InputFile {
  public:
    explicit PosixInputFile(Descriptor file) : file_(std::move(file)) {}

    std::size_t read(std::span<std::byte> target) override {
        return readInto(file_, target).value_or(0);
    }

  private:
    Descriptor file_;
};

class PosixOutputFile final : public OutputFile {
  public:
    explicit PosixOutputFile(Descriptor file) : file_(std::move(file)) {}

    bool append(std::span<const std::byte> bytes) override {
        while (!bytes.empty()) {
            const ssize_t count =
                uninterrupted([&] { return ::write(file_.number(), bytes.data(), bytes.size()); });
            if (count <= 0) return false;
            bytes = bytes.subspan(static_cast<std::size_t>(count));
        }
        return true;
    }

    bool flush() override {
        return uninterrupted([&] { return ::fsync(file_.number()); }) == 0;
    }

  private:
    Descriptor file_;
};

std::string lowerCase(std::string text) {
    std::ranges::transform(text, text.begin(), [](char character) {
        return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a')
                                                    : character;
    });
    return text;
}

}  // namespace

std::optional<Bytes> PosixFiles::read(const std::filesystem::path& file, std::uint64_t limit) {
    const Descriptor descriptor = openDescriptor(file, O_RDONLY);
    if (!descriptor.isOpen()) return std::nullopt;
    return readRest(descriptor, sizeFrom(descriptor, 0), limit);
}

std::optional<Bytes> PosixFiles::readFrom(const std::filesystem::path& file, std::uint64_t offset) {
    const Descriptor descriptor = openDescriptor(file, O_RDONLY);
    if (!descriptor.isOpen() || !std::in_range<off_t>(offset)) return std::nullopt;
    if (::lseek(descriptor.number(), static_cast<off_t>(offset), SEEK_SET) < 0) return std::nullopt;
    return readRest(descriptor, sizeFrom(descriptor, offset), UINT64_MAX);
}

std::unique_ptr<InputFile> PosixFiles::openForReading(const std::filesystem::path& file) {
    Descriptor descriptor = openDescriptor(file, O_RDONLY);
    if (!descriptor.isOpen()) return nullptr;
    return std::make_unique<PosixInputFile>(std::move(descriptor));
}

std::unique_ptr<OutputFile> PosixFiles::open(const std::filesystem::path& file, OpenMode mode) {
    if (isWriteProtected(file)) return nullptr;
    const int emptied = mode == OpenMode::Replace ? O_TRUNC : 0;
    Descriptor descriptor = openDescriptor(file, O_WRONLY | O_CREAT | emptied);
    if (!descriptor.isOpen()) return nullptr;
    return std::make_unique<PosixOutputFile>(std::move(descriptor));
}

bool PosixFiles::replace(const std::filesystem::path& from, const std::filesystem::path& to) {
    struct stat status {};
    if (::stat(to.c_str(), &status) == 0) {
        if (isWriteProtected(to)) return false;
        if (::chmod(from.c_str(), status.st_mode & permissionBits) != 0) return false;
    }
    if (::rename(from.c_str(), to.c_str()) != 0) return false;
    flushFolderOf(to);
    return true;
}

bool PosixFiles::remove(const std::filesystem::path& file) {
    return ::unlink(file.c_str()) == 0;
}

bool PosixFiles::exists(const std::filesystem::path& path) {
    std::error_code error;
    return std::filesystem::exists(path, error);
}

bool PosixFiles::createFolder(const std::filesystem::path& folder) {
    std::error_code error;
    std::filesystem::create_directory(folder, error);
    return std::filesystem::is_directory(folder, error);
}

std::vector<std::filesystem::path> PosixFiles::list(const std::filesystem::path& folder,
                                                    std::string_view ending) {
    const std::string wanted = lowerCase(std::string(ending));
    std::vector<std::filesystem::path> files;
    std::error_code error;
    std::filesystem::directory_iterator entry(folder, error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        std::error_code unreadable;
        if (!entry->is_regular_file(unreadable)) continue;
        if (!lowerCase(entry->path().filename().native()).ends_with(wanted)) continue;
        files.push_back(entry->path());
    }
    std::ranges::sort(files);
    return files;
}

std::filesystem::path PosixFiles::followLink(const std::filesystem::path& file) {
    std::filesystem::path target = file;
    std::error_code error;
    for (int links = 0; links < longestLinkChain; ++links) {
        if (!std::filesystem::is_symlink(target, error)) return target;
        target = target.parent_path() / std::filesystem::read_symlink(target, error);
        if (error) return file;
    }
    return file;
}

}  // namespace quorvel
