#include "platform/win32/WindowsShell.h"

#include <string>

#include "platform/win32/Handles.h"
#include "platform/win32/Texts.h"

namespace quorvel {

bool WindowsShell::startMaximized(std::string_view program, const std::filesystem::path& file) {
    // Windows finds no program behind a blank.
    const std::size_t start = program.find_first_not_of(' ');
    if (start == std::string_view::npos) return false;
    std::wstring commandLine = toWide(program.substr(start), codePage_);
    if (commandLine.back() != L' ') commandLine += L' ';
    commandLine += L'"' + file.native() + L'"';

    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = SW_SHOWMAXIMIZED;
    PROCESS_INFORMATION started{};
    if (::CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                         &startup, &started) == 0)
        return false;
    const UniqueHandle process(started.hProcess);
    const UniqueHandle thread(started.hThread);
    ::AllowSetForegroundWindow(started.dwProcessId);
    return true;
}

ScreenSize WindowsShell::screenSize() const {
    return {::GetSystemMetrics(SM_CXSCREEN), ::GetSystemMetrics(SM_CYSCREEN)};
}

}  // namespace quorvel
