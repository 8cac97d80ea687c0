#include "platform/win32/SystemPlaces.h"

#include <string>
#include <utility>

#include <windows.h>

#include "access/Password.h"
#include "platform/win32/Handles.h"
#include "platform/win32/ProgramFolder.h"

#include <knownfolders.h>
#include <shlobj.h>

namespace quorvel {

namespace {

std::filesystem::path temporaryFolder() {
    std::wstring folder(MAX_PATH + 1, L'\0');
    folder.resize(::GetTempPathW(static_cast<DWORD>(folder.size()), folder.data()));
    return std::filesystem::path(std::move(folder));
}

/// A folder of the user's; the one for temporary files where the system names none.
std::filesystem::path userFolder(const KNOWNFOLDERID& id) {
    PWSTR text = nullptr;
    const HRESULT result = ::SHGetKnownFolderPath(id, KF_FLAG_DEFAULT, nullptr, &text);
    const UniqueTaskText folder(text);
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
