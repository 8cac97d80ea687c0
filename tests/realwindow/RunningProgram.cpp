#include "tests/realwindow/RunningProgram.h"

#include <array>
#include <cstddef>

#include "platform/win32/ControlIds.h"
#include "tests/realwindow/SystemTexts.h"
#include "tests/scenario/Scenario.h"

#include <tlhelp32.h>
#include <winternl.h>

namespace quorvel::scenario {

namespace {

constexpr DWORD endingTimeout = 10'000;  // milliseconds

void endProcess(HANDLE process) {
    TerminateProcess(process, 0);
    WaitForSingleObject(process, endingTimeout);
}

BOOL CALLBACK collectVisibleWindow(HWND window, LPARAM parameter) {
    auto& found = *reinterpret_cast<std::vector<HWND>*>(parameter);
    if (IsWindowVisible(window) != 0) found.push_back(window);
    return TRUE;
}

template <typename Value>
Value readMemory(HANDLE process, const void* address) {
    Value value{};
    if (ReadProcessMemory(process, address, &value, sizeof value, nullptr) == 0)
        throw ScenarioError("a started program cannot be looked into");
    return value;
}

std::wstring readText(HANDLE process, const UNICODE_STRING& text) {
    std::wstring characters(text.Length / sizeof(wchar_t), L'\0');
    if (ReadProcessMemory(process, text.Buffer, characters.data(), text.Length, nullptr) == 0)
        throw ScenarioError("a started program cannot be looked into");
    return characters;
}

/// What a process was started with. The system's header leaves the working folder unnamed.
struct StartParameters {
    std::array<std::byte, 0x38> before;
    UNICODE_STRING workingFolder;
    HANDLE workingFolderHandle;
    UNICODE_STRING libraryFolders;
    UNICODE_STRING program;
    UNICODE_STRING commandLine;
};
static_assert(offsetof(StartParameters, commandLine) ==
              offsetof(RTL_USER_PROCESS_PARAMETERS, CommandLine));

StartedProgram startedAs(HANDLE process) {
    PROCESS_BASIC_INFORMATION information{};
    if (NtQueryInformationProcess(process, ProcessBasicInformation, &information,
                                  sizeof information, nullptr) != 0)
        throw ScenarioError("a started program cannot be looked into");
    const auto block = readMemory<PEB>(process, information.PebBaseAddress);
    const auto parameters = readMemory<StartParameters>(process, block.ProcessParameters);
    return {readText(process, parameters.commandLine), readText(process, parameters.workingFolder)};
}

}  // namespace

std::filesystem::path programIn(const std::filesystem::path& folder) {
    return folder / "Quorvel.exe";
}

RunningProgram::RunningProgram(const std::filesystem::path& program,
                               const std::wstring& arguments) {
    std::wstring commandLine = L"\"" + program.wstring() + L"\" " + arguments;
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    // Started from elsewhere: the program finds its folder by itself.
    if (CreateProcessW(program.c_str(), commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr,
                       L"C:\\", &startup, &process) == 0)
        throw ScenarioError("the program cannot be started, error " +
                            std::to_string(GetLastError()));
    CloseHandle(process.hThread);
    process_.reset(process.hProcess);
    processId_ = process.dwProcessId;
    threadId_ = process.dwThreadId;
}

RunningProgram::~RunningProgram() {
    for (const DWORD started : startedProcesses()) {
        const UniqueHandle process(OpenProcess(PROCESS_TERMINATE | SYNCHRONIZE, FALSE, started));
        if (process) endProcess(process.get());
    }
    endProcess(process_.get());
}

bool RunningProgram::hasEnded() const {
    return WaitForSingleObject(process_.get(), 0) == WAIT_OBJECT_0;
}

DWORD RunningProgram::exitCode() const {
    DWORD code = 0;
    GetExitCodeProcess(process_.get(), &code);
    return code;
}

std::vector<HWND> RunningProgram::visibleWindows() const {
    std::vector<HWND> found;
    EnumThreadWindows(threadId_, collectVisibleWindow, reinterpret_cast<LPARAM>(&found));
    return found;
}

HWND RunningProgram::mainWindow() const {
    for (HWND window : visibleWindows())
        if (classNameOf(window) == control_id::mainWindowClass) return window;
    return nullptr;
}

HWND RunningProgram::focusedWindow() const {
    HWND window = mainWindow();
    if (window == nullptr) return nullptr;
    GUITHREADINFO information{};
    information.cbSize = sizeof information;
    if (GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &information) == 0)
        return nullptr;
    return information.hwndFocus;
}

std::vector<DWORD> RunningProgram::startedProcesses() const {
    std::vector<DWORD> started;
    const UniqueHandle snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
    PROCESSENTRY32W entry{};
    entry.dwSize = sizeof entry;
    for (BOOL more = Process32FirstW(snapshot.get(), &entry); more != 0;
         more = Process32NextW(snapshot.get(), &entry))
        if (entry.th32ParentProcessID == processId_) started.push_back(entry.th32ProcessID);
    return started;
}

std::vector<StartedProgram> RunningProgram::startedPrograms() const {
    std::vector<StartedProgram> programs;
    for (const DWORD started : startedProcesses()) {
        const UniqueHandle process(
            OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, started));
        if (process) programs.push_back(startedAs(process.get()));
    }
    return programs;
}

}  // namespace quorvel::scenario
