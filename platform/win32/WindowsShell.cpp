#include "platform/win32/WindowsShell.h"

#include <string>

#include "platform/win32/ControlParts.h"
#include "platform/win32/Handles.h"
#include "platform/win32/Texts.h"

namespace quorvel {

namespace {

std::wstring systemFolder() {
    std::wstring folder(::GetSystemDirectoryW(nullptr, 0), L'\0');
    folder.resize(::GetSystemDirectoryW(folder.data(), static_cast<UINT>(folder.size())));
    return folder;
}

}  // namespace

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
    // What is started takes errors as it is used to, and keeps no folder of ours from being
    // removed.
    if (::CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE,
                         CREATE_DEFAULT_ERROR_MODE, nullptr, systemFolder().c_str(), &startup,
                         &started) == 0)
        return false;
    const UniqueHandle process(started.hProcess);
    const UniqueHandle thread(started.hThread);
    ::AllowSetForegroundWindow(started.dwProcessId);
    return true;
}

ScreenSize WindowsShell::screenSize() const {
    return {::GetSystemMetrics(SM_CXSCREEN), ::GetSystemMetrics(SM_CYSCREEN)};
}

ScreenSize WindowsShell::largestClientArea() const {
    RECT area{};
    ::SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    RECT frame{};
    ::AdjustWindowRectEx(&frame, mainWindowStyle, TRUE, 0);
    return {static_cast<int>(area.right - area.left - (frame.right - frame.left)),
            static_cast<int>(area.bottom - area.top - (frame.bottom - frame.top))};
}

}  // namespace quorvel
