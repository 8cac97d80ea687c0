#include "platform/win32/SystemPlaces.h"

#include <memory>
#include <string>

#include <windows.h>

#include "access/Password.h"

#include <knownfolders.h>
#include <shlobj.h>

namespace quorvel {

namespace {

constexpr std::size_t longestPath = 32768;

std::filesystem::path programFolder() {
    std::wstring file(longestPath, L'\0');
    file.resize(::GetModuleFileNameW(nullptr, file.data(), static_cast<DWORD>(file.size())));
    return std::filesystem::path(std::move(file)).parent_path();
}

std::filesystem::path temporaryFolder() {
    std::wstring folder(longestPath, L'\0');
    folder.resize(::GetTempPathW(static_cast<DWORD>(folder.size()), folder.data()));
    return std::filesystem::path(std::move(folder));
}

struct ShellMemory {
    void operator()(wchar_t* memory) const { ::CoTaskMemFree(memory); }
};

/// A folder of the user's; the one for temporary files where the system names none.
std::filesystem::path userFolder(const KNOWNFOLDERID& id) {
    PWSTR text = nullptr;
    const HRESULT result = ::SHGetKnownFolderPath(id, KF_FLAG_DEFAULT, nullptr, &text);
    const std::unique_ptr<wchar_t, ShellMemory> folder(text);
    return SUCCEEDED(result) ? std::filesystem::path(folder.get()) : temporaryFolder();
}

}  // namespace

Places systemPlaces() {
    return {.programFolder = programFolder(),
            .passwordFile = windowsPasswordFile,
            .documents = userFolder(FOLDERID_Documents),
            .localData = userFolder(FOLDERID_LocalAppData),
            .temporary = temporaryFolder()};
}

}  // namespace quorvel
