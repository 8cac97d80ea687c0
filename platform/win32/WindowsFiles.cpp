#include "platform/win32/WindowsFiles.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <utility>

#include "platform/win32/Handles.h"

namespace quorvel {

namespace {

/// The most that is handed to Windows in one call, which counts in 32 bits.
constexpr std::size_t largestTransfer = std::size_t{1} << 30;
/// What is read at a time behind the size that a file told.
constexpr std::size_t furtherStep = 4096;
/// A virus scanner or a backup may hold a file for a moment: how often and with how many
/// milliseconds between it is tried again.
constexpr int replaceAttempts = 6;
constexpr DWORD pauseBetweenAttempts = 25;

UniqueHandle openHandle(const std::filesystem::path& file, DWORD access, DWORD sharing,
                        DWORD disposition, DWORD flags = FILE_ATTRIBUTE_NORMAL) {
    HANDLE handle =
        ::CreateFileW(file.c_str(), access, sharing, nullptr, disposition, flags, nullptr);
    return UniqueHandle(handle == INVALID_HANDLE_VALUE ? nullptr : handle);
}

UniqueHandle openExisting(const std::filesystem::path& file) {
    return openHandle(file, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                      OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN);
}

bool hasAttribute(const std::filesystem::path& path, DWORD attribute) {
    const DWORD attributes = ::GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & attribute) != 0;
}

DWORD transferSize(std::size_t size) {
    return static_cast<DWORD>(std::min(size, largestTransfer));
}

/// Fills `target`, or what of it the file has; nothing on failure.
std::optional<std::size_t> readInto(HANDLE file, std::span<std::byte> target) {
    std::size_t filled = 0;
    while (filled < target.size()) {
        DWORD count = 0;
        if (::ReadFile(file, target.data() + filled, transferSize(target.size() - filled), &count,
                       nullptr) == 0)
            return std::nullopt;
        if (count == 0) break;
        filled += count;
    }
    return filled;
}

std::uint64_t sizeFrom(HANDLE file, std::uint64_t offset) {
    LARGE_INTEGER size{};
    if (::GetFileSizeEx(file, &size) == 0) return 0;
    const auto bytes = static_cast<std::uint64_t>(size.QuadPart);
    return bytes > offset ? bytes - offset : 0;
}

/// The bytes from the current position on, at most `limit`. The size told is only a first guess:
/// the file may change meanwhile.
std::optional<Bytes> readRest(HANDLE file, std::uint64_t sizeTold, std::uint64_t limit) {
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
        bytes.insert(bytes.end(), further.data(), further.data() + *count);
    }
    return bytes;
}

class WindowsInputFile final : public InputFile {
  public:
    explicit WindowsInputFile(UniqueHandle file) : file_(std::move(file)) {}

    std::size_t read(std::span<std::byte> target) override {
        return readInto(file_.get(), target).value_or(0);
    }

  private:
    UniqueHandle file_;
};

class WindowsOutputFile final : public OutputFile {
  public:
    explicit WindowsOutputFile(UniqueHandle file) : file_(std::move(file)) {}

    bool append(std::span<const std::byte> bytes) override {
        while (!bytes.empty()) {
            // A full disk is sometimes told by a short count alone.
            DWORD written = 0;
            if (::WriteFile(file_.get(), bytes.data(), transferSize(bytes.size()), &written,
                            nullptr) == 0 ||
                written == 0)
                return false;
            bytes = bytes.subspan(written);
        }
        return true;
    }

    bool flush() override { return ::FlushFileBuffers(file_.get()) != 0; }

  private:
    UniqueHandle file_;
};

bool endsIgnoringCase(std::wstring_view name, std::wstring_view ending) {
    const std::wstring_view end = name.substr(name.size() - std::min(name.size(), ending.size()));
    return ::CompareStringOrdinal(end.data(), static_cast<int>(end.size()), ending.data(),
                                  static_cast<int>(ending.size()), TRUE) == CSTR_EQUAL;
}

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

std::optional<Bytes> WindowsFiles::read(const std::filesystem::path& file, std::uint64_t limit) {
    const UniqueHandle handle = openExisting(file);
    if (!handle) return std::nullopt;
    return readRest(handle.get(), sizeFrom(handle.get(), 0), limit);
}

std::optional<Bytes> WindowsFiles::readFrom(const std::filesystem::path& file,
                                            std::uint64_t offset) {
    const UniqueHandle handle = openExisting(file);
    if (!handle || offset > INT64_MAX) return std::nullopt;
    LARGE_INTEGER position{};
    position.QuadPart = static_cast<LONGLONG>(offset);
    if (::SetFilePointerEx(handle.get(), position, nullptr, FILE_BEGIN) == 0) return std::nullopt;
    return readRest(handle.get(), sizeFrom(handle.get(), offset), UINT64_MAX);
}

std::unique_ptr<InputFile> WindowsFiles::openForReading(const std::filesystem::path& file) {
    UniqueHandle handle = openExisting(file);
    if (!handle) return nullptr;
    return std::make_unique<WindowsInputFile>(std::move(handle));
}

std::unique_ptr<OutputFile> WindowsFiles::open(const std::filesystem::path& file, OpenMode mode) {
    if (hasAttribute(file, FILE_ATTRIBUTE_READONLY)) return nullptr;
    // Emptying comes second, since Windows would not replace a hidden file by a plain one.
    UniqueHandle handle = openHandle(file, GENERIC_WRITE, FILE_SHARE_READ, OPEN_ALWAYS);
    if (!handle) return nullptr;
    if (mode == OpenMode::Replace && ::SetEndOfFile(handle.get()) == 0) return nullptr;
    return std::make_unique<WindowsOutputFile>(std::move(handle));
}

bool WindowsFiles::replace(const std::filesystem::path& from, const std::filesystem::path& to) {
    if (hasAttribute(to, FILE_ATTRIBUTE_READONLY)) return false;
    for (int attempt = 1;; ++attempt) {
        if (::MoveFileExW(from.c_str(), to.c_str(),
                          MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0)
            return true;
        const DWORD error = ::GetLastError();
        const bool mayPass = error == ERROR_SHARING_VIOLATION || error == ERROR_ACCESS_DENIED;
        if (!mayPass || attempt == replaceAttempts) return false;
        ::Sleep(pauseBetweenAttempts);
    }
}

bool WindowsFiles::remove(const std::filesystem::path& file) {
    return ::DeleteFileW(file.c_str()) != 0;
}

bool WindowsFiles::exists(const std::filesystem::path& path) {
    return ::GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

bool WindowsFiles::createFolder(const std::filesystem::path& folder) {
    return ::CreateDirectoryW(folder.c_str(), nullptr) != 0 ||
           hasAttribute(folder, FILE_ATTRIBUTE_DIRECTORY);
}

std::vector<std::filesystem::path> WindowsFiles::list(const std::filesystem::path& folder,
                                                      std::string_view ending) {
    const std::wstring wanted(ending.begin(), ending.end());
    std::vector<std::filesystem::path> files;
    FolderSearch search(folder / L"*");
    if (!search.found()) return files;
    do {
        const std::filesystem::path name = search.name();
        if (search.isFile() && endsIgnoringCase(name.native(), wanted))
            files.push_back(folder / name);
    } while (search.next());
    std::ranges::sort(files, {}, &std::filesystem::path::native);
    return files;
}

std::filesystem::path WindowsFiles::followLink(const std::filesystem::path& file) {
    if (!hasAttribute(file, FILE_ATTRIBUTE_REPARSE_POINT)) return file;
    const UniqueHandle handle =
        openHandle(file, 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, OPEN_EXISTING);
    if (!handle) return file;
    std::wstring target(::GetFinalPathNameByHandleW(handle.get(), nullptr, 0, 0), L'\0');
    const DWORD length = ::GetFinalPathNameByHandleW(handle.get(), target.data(),
                                                     static_cast<DWORD>(target.size()), 0);
    if (length == 0 || length >= target.size()) return file;
    target.resize(length);
    return target;
}

}  // namespace quorvel
