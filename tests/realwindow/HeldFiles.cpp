#include "tests/realwindow/HeldFiles.h"

#include <string>

namespace quorvel::scenario {

void HeldFiles::open(const std::filesystem::path& file, FileSharing sharing) {
    const DWORD shared = sharing == FileSharing::Contents ? FILE_SHARE_READ | FILE_SHARE_WRITE : 0;
    HANDLE opened = CreateFileW(file.c_str(), GENERIC_READ, shared, nullptr, OPEN_EXISTING,
                                FILE_ATTRIBUTE_NORMAL, nullptr);
    if (opened == INVALID_HANDLE_VALUE)
        throw ScenarioError("the file cannot be opened, error " + std::to_string(GetLastError()));
    files_[file].reset(opened);
}

void HeldFiles::close(const std::filesystem::path& file) {
    if (files_.erase(file) == 0) throw ScenarioError("no program has the file open");
}

std::vector<std::byte> HeldFiles::contentOf(const std::filesystem::path& file) const {
    HANDLE opened = files_.at(file).get();
    LARGE_INTEGER size{};
    GetFileSizeEx(opened, &size);
    SetFilePointer(opened, 0, nullptr, FILE_BEGIN);
    std::vector<std::byte> bytes(static_cast<std::size_t>(size.QuadPart));
    DWORD count = 0;
    if (ReadFile(opened, bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr) == 0)
        throw ScenarioError("the file cannot be read, error " + std::to_string(GetLastError()));
    bytes.resize(count);
    return bytes;
}

}  // namespace quorvel::scenario
