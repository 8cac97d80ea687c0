#include "platform/win32/ProgramFolder.h"

#include <string>
#include <utility>

#include <windows.h>

namespace quorvel {

std::filesystem::path programFolder() {
    // The longest that Windows knows, in characters.
    constexpr std::size_t longestPath = 32767;
    std::wstring file(longestPath, L'\0');
    file.resize(::GetModuleFileNameW(nullptr, file.data(), static_cast<DWORD>(file.size())));
    return std::filesystem::path(std::move(file)).parent_path();
}

}  // namespace quorvel
