#include "platform/win32/WindowsFiles.h"

#include <algorithm>
#include <string>
#include <utility>

#include "platform/win32/FileRights.h"
#include "platform/win32/Handles.h"

namespace quorvel {

namespace {

/// The most that is handed to Windows in one call, which counts in 32 bits.
constexpr std::size_t largestTransfer = std::size_t{1} << 30;
constexpr DWORD shareEverything = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

UniqueHandle openHandle(const std::filesystem::path& file, DWORD access, DWORD sharing,
                        DWORD disposition, DWORD flags = FILE_ATTRIBUTE_NORMAL) {
    HANDLE handle =
        ::CreateFileW(file.c_str(), access, sharing, nullptr, disposition, flags, nullptr);
    return UniqueHandle(handle == INVALID_HANDLE_VALUE ? nullptr : handle);
}

bool hasAttribute(const std::filesystem::path& path, DWORD attribute) {
    const DWORD attributes = ::GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & attribute) != 0;
}

bool isFolder(const std::filesystem::path& path) {
    return hasAttribute(path, FILE_ATTRIBUTE_DIRECTORY);
}

/// Why `file` could not be opened, `error` being what Windows says.
FileProblem problemOf(const std::filesystem::path& file, DWORD error) {
    switch (error) {
        case ERROR_FILE_NOT_FOUND:
            return FileProblem::Missing;
        case ERROR_PATH_NOT_FOUND: {
            // A drive that is gone, such as that of a share, says the same as a missing folder.
            const bool driveIsThere =
                ::GetFileAttributesW(file.root_path().c_str()) != INVALID_FILE_ATTRIBUTES;
            return driveIsThere ? FileProblem::Missing : FileProblem::Unreadable;
        }
        case ERROR_ACCESS_DENIED:
            return isFolder(file) ? FileProblem::Folder : FileProblem::Refused;
        case ERROR_SHARING_VIOLATION:
        case ERROR_LOCK_VIOLATION:
            return FileProblem::InUse;
        default:
            return FileProblem::Unreadable;
    }
}

DWORD transferSize(std::size_t size) {
    return static_cast<DWORD>(std::min(size, largestTransfer));
}

bool moveTo(HANDLE file, std::uint64_t offset) {
    LARGE_INTEGER position{};
    position.QuadPart = static_cast<LONGLONG>(offset);
    return ::SetFilePointerEx(file, position, nullptr, FILE_BEGIN) != 0;
}

class WindowsInputFile final : public InputFile {
  public:
    explicit WindowsInputFile(UniqueHandle file) : file_(std::move(file)) {}

  private:
    std::optional<std::size_t> readSome(std::span<std::byte> target) override {
        DWORD count = 0;
        if (::ReadFile(file_.get(), target.data(), transferSize(target.size()), &count, nullptr) ==
            0)
            return std::nullopt;
        return count;
    }

    UniqueHandle file_;
};

class WindowsOutputFile final : public OutputFile {
  public:
    explicit WindowsOutputFile(UniqueHandle file) : file_(std::move(file)) {}

    /// The position is behind what was written.
    bool cut() override { return ::SetEndOfFile(file_.get()) != 0; }
    bool flush() override { return ::FlushFileBuffers(file_.get()) != 0; }

  private:
    std::size_t writeSome(std::span<const std::byte> bytes) override {
        DWORD written = 0;
        const BOOL done =
            ::WriteFile(file_.get(), bytes.data(), transferSize(bytes.size()), &written, nullptr);
        return done != 0 ? written : 0;
    }

    UniqueHandle file_;
};

/// A search through a folder, ended when it is destroyed.
class FolderSearch {
  public:
    explicit FolderSearch(const std::filesystem::path& pattern)
        : search_(::FindFirstFileW(pattern.c_str(), &entry_)) {}
    FolderSearch(const FolderSearch&) = delete;
    FolderSearch& operator=(const FolderSearch&) = delete;
    ~FolderSearch() {
        if (found()) ::FindClose(search_);
    }

    bool found() const { return search_ != INVALID_HANDLE_VALUE; }
    bool next() { return ::FindNextFileW(search_, &entry_) != 0; }
    bool isFile() const { return (entry_.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0; }
    std::filesystem::path name() const { return entry_.cFileName; }

  private:
    WIN32_FIND_DATAW entry_{};
    HANDLE search_;
};

}  // namespace

Files::Opened WindowsFiles::openForReading(const std::filesystem::path& file,
                                           std::uint64_t offset) {
    UniqueHandle handle =
        openHandle(file, GENERIC_READ, shareEverything, OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN);
    if (!handle) return {nullptr, problemOf(file, ::GetLastError())};
    if (offset > INT64_MAX || !moveTo(handle.get(), offset))
        return {nullptr, FileProblem::Unreadable};
    return {std::make_unique<WindowsInputFile>(std::move(handle))};
}

std::unique_ptr<OutputFile> WindowsFiles::create(const std::filesystem::path& file,
                                                 const std::filesystem::path& model) {
    const FileRights rights(model);
    UniqueHandle handle =
        openHandle(file, GENERIC_WRITE, FILE_SHARE_READ, CREATE_NEW, rights.creationFlags());
    if (!handle) return nullptr;
    if (!rights.giveTo(file)) {
        handle.reset();
        ::DeleteFileW(file.c_str());
        return nullptr;
    }
    return std::make_unique<WindowsOutputFile>(std::move(handle));
}

std::unique_ptr<OutputFile> WindowsFiles::openForWriting(const std::filesystem::path& file) {
    if (hasAttribute(file, FILE_ATTRIBUTE_READONLY)) return nullptr;
    UniqueHandle handle = openHandle(file, GENERIC_WRITE, shareEverything, OPEN_ALWAYS);
    if (!handle) return nullptr;
    return std::make_unique<WindowsOutputFile>(std::move(handle));
}

bool WindowsFiles::replace(const std::filesystem::path& from, const std::filesystem::path& to) {
    if (hasAttribute(to, FILE_ATTRIBUTE_READONLY)) return false;
    return ::MoveFileExW(from.c_str(), to.c_str(),
                         MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
}

bool WindowsFiles::remove(const std::filesystem::path& file) {
    return ::DeleteFileW(file.c_str()) != 0;
}

bool WindowsFiles::copy(const std::filesystem::path& from, const std::filesystem::path& to) {
    return ::CopyFileW(from.c_str(), to.c_str(), FALSE) != 0;
}

std::optional<FileStamp> WindowsFiles::stampOf(const std::filesystem::path& path) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (::GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data) == 0)
        return std::nullopt;
    const ULARGE_INTEGER length{{.LowPart = data.nFileSizeLow, .HighPart = data.nFileSizeHigh}};
    const ULARGE_INTEGER time{{.LowPart = data.ftLastWriteTime.dwLowDateTime,
                               .HighPart = data.ftLastWriteTime.dwHighDateTime}};
    return FileStamp{length.QuadPart, static_cast<std::int64_t>(time.QuadPart)};
}

bool WindowsFiles::createFolder(const std::filesystem::path& folder) {
    return ::CreateDirectoryW(folder.c_str(), nullptr) != 0 || isFolder(folder);
}

std::vector<std::filesystem::path> WindowsFiles::list(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> files;
    FolderSearch search(folder / L"*");
    if (!search.found()) return files;
    do {
        if (search.isFile()) files.push_back(folder / search.name());
    } while (search.next());
    return files;
}

std::filesystem::path WindowsFiles::followLink(const std::filesystem::path& file) {
    if (!hasAttribute(file, FILE_ATTRIBUTE_REPARSE_POINT)) return file;
    const UniqueHandle handle = openHandle(file, 0, shareEverything, OPEN_EXISTING);
    if (!handle) return file;
    std::wstring target(::GetFinalPathNameByHandleW(handle.get(), nullptr, 0, 0), L'\0');
    const DWORD length = ::GetFinalPathNameByHandleW(handle.get(), target.data(),
                                                     static_cast<DWORD>(target.size()), 0);
    if (length == 0 || length >= target.size()) return file;
    target.resize(length);
    return target;
}

void WindowsFiles::pause() {
    ::Sleep(static_cast<DWORD>(moment.count()));
}

}  // namespace quorvel
