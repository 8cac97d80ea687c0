#include "platform/posix/PosixFiles.h"

#include <cerrno>
#include <system_error>
#include <thread>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quorvel {

namespace {

constexpr mode_t newFileMode = 0666;
constexpr mode_t ownersOnly = 0600;
constexpr mode_t permissionBits = 07777;
constexpr mode_t anyWriteBit = S_IWUSR | S_IWGRP | S_IWOTH;
/// How many links in a row are followed before they count as a circle.
constexpr int longestLinkChain = 40;
constexpr std::int64_t nanosecondsPerSecond = 1'000'000'000;

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

Descriptor openDescriptor(const std::filesystem::path& file, int flags, mode_t mode = newFileMode) {
    return Descriptor(uninterrupted([&] { return ::open(file.c_str(), flags | O_CLOEXEC, mode); }));
}

std::optional<struct stat> statusOf(const std::filesystem::path& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) return std::nullopt;
    return status;
}

FileProblem lastProblem() {
    switch (errno) {
        case ENOENT:
        case ENOTDIR:
            return FileProblem::Missing;
        case EACCES:
        case EPERM:
            return FileProblem::Refused;
        default:
            return FileProblem::Unreadable;
    }
}

bool isFolder(const Descriptor& file) {
    struct stat status {};
    return ::fstat(file.number(), &status) == 0 && S_ISDIR(status.st_mode);
}

bool isWriteProtected(const std::filesystem::path& file) {
    const auto status = statusOf(file);
    return status && ((status->st_mode & anyWriteBit) == 0 || ::access(file.c_str(), W_OK) != 0);
}

/// Owner and group are given as far as the system lets us; without the owner the group alone.
bool giveRights(const Descriptor& file, const struct stat& model) {
    if (::fchown(file.number(), model.st_uid, model.st_gid) != 0)
        static_cast<void>(::fchown(file.number(), static_cast<uid_t>(-1), model.st_gid));
    return ::fchmod(file.number(), model.st_mode & permissionBits) == 0;
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

  private:
    std::optional<std::size_t> readSome(std::span<std::byte> target) override {
        const ssize_t count =
            uninterrupted([&] { return ::read(file_.number(), target.data(), target.size()); });
        if (count < 0) return std::nullopt;
        return static_cast<std::size_t>(count);
    }

    Descriptor file_;
};

class PosixOutputFile final : public OutputFile {
  public:
    explicit PosixOutputFile(Descriptor file) : file_(std::move(file)) {}

    bool cut() override { return ::ftruncate(file_.number(), static_cast<off_t>(length())) == 0; }
    bool flush() override {
        return uninterrupted([&] { return ::fsync(file_.number()); }) == 0;
    }

  private:
    std::size_t writeSome(std::span<const std::byte> bytes) override {
        const ssize_t count =
            uninterrupted([&] { return ::write(file_.number(), bytes.data(), bytes.size()); });
        return count < 0 ? 0 : static_cast<std::size_t>(count);
    }

    Descriptor file_;
};

}  // namespace

Files::Opened PosixFiles::openForReading(const std::filesystem::path& file, std::uint64_t offset) {
    Descriptor descriptor = openDescriptor(file, O_RDONLY);
    if (!descriptor.isOpen()) return {nullptr, lastProblem()};
    if (isFolder(descriptor)) return {nullptr, FileProblem::Folder};
    const bool canStart =
        offset == 0 || (std::in_range<off_t>(offset) &&
                        ::lseek(descriptor.number(), static_cast<off_t>(offset), SEEK_SET) >= 0);
    if (!canStart) return {nullptr, FileProblem::Unreadable};
    return {std::make_unique<PosixInputFile>(std::move(descriptor))};
}

std::unique_ptr<OutputFile> PosixFiles::create(const std::filesystem::path& file,
                                               const std::filesystem::path& model) {
    const auto status = statusOf(model);
    Descriptor descriptor =
        openDescriptor(file, O_WRONLY | O_CREAT | O_EXCL, status ? ownersOnly : newFileMode);
    if (!descriptor.isOpen()) return nullptr;
    // The lock says that it is open; remove() looks for it.
    ::flock(descriptor.number(), LOCK_EX | LOCK_NB);
    if (status && !giveRights(descriptor, *status)) {
        ::unlink(file.c_str());
        return nullptr;
    }
    return std::make_unique<PosixOutputFile>(std::move(descriptor));
}

std::unique_ptr<OutputFile> PosixFiles::openForWriting(const std::filesystem::path& file) {
    if (isWriteProtected(file)) return nullptr;
    Descriptor descriptor = openDescriptor(file, O_WRONLY | O_CREAT);
    if (!descriptor.isOpen()) return nullptr;
    return std::make_unique<PosixOutputFile>(std::move(descriptor));
}

bool PosixFiles::replace(const std::filesystem::path& from, const std::filesystem::path& to) {
    if (isWriteProtected(to) || ::rename(from.c_str(), to.c_str()) != 0) return false;
    flushFolderOf(to);
    return true;
}

bool PosixFiles::remove(const std::filesystem::path& file) {
    const Descriptor descriptor = openDescriptor(file, O_RDONLY | O_NONBLOCK);
    if (descriptor.isOpen() && ::flock(descriptor.number(), LOCK_EX | LOCK_NB) != 0 &&
        errno == EWOULDBLOCK)
        return false;
    return ::unlink(file.c_str()) == 0;
}

bool PosixFiles::copy(const std::filesystem::path& from, const std::filesystem::path& to) {
    std::error_code error;
    return std::filesystem::copy_file(from, to, std::filesystem::copy_options::overwrite_existing,
                                      error);
}

std::optional<FileStamp> PosixFiles::stampOf(const std::filesystem::path& path) {
    const auto status = statusOf(path);
    if (!status) return std::nullopt;
    return FileStamp{
        static_cast<std::uint64_t>(status->st_size),
        std::int64_t{status->st_mtim.tv_sec} * nanosecondsPerSecond + status->st_mtim.tv_nsec};
}

bool PosixFiles::createFolder(const std::filesystem::path& folder) {
    std::error_code error;
    std::filesystem::create_directory(folder, error);
    return std::filesystem::is_directory(folder, error);
}

std::vector<std::filesystem::path> PosixFiles::list(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> files;
    std::error_code error;
    std::filesystem::directory_iterator entry(folder, error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        std::error_code unreadable;
        if (entry->is_regular_file(unreadable)) files.push_back(entry->path());
    }
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

void PosixFiles::pause() {
    std::this_thread::sleep_for(moment);
}

}  // namespace quorvel
