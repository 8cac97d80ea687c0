#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include <windows.h>

#include "platform/win32/Handles.h"

namespace quorvel::scenario {

/// What the program started and what still runs.
struct StartedProgram {
    std::wstring commandLine;
    std::filesystem::path workingFolder;
};

/// Where the program lies in its folder.
std::filesystem::path programIn(const std::filesystem::path& folder);

/// The program as the system sees it: a process and its windows. It ends with this object, and so
/// does every program that it started.
class RunningProgram {
  public:
    /// Starts the program in this file. Throws ScenarioError when it cannot be started.
    explicit RunningProgram(const std::filesystem::path& program,
                            const std::wstring& arguments = L"");
    ~RunningProgram();
    RunningProgram(const RunningProgram&) = delete;
    RunningProgram& operator=(const RunningProgram&) = delete;

    bool hasEnded() const;
    /// Of a program that has ended.
    DWORD exitCode() const;
    HANDLE process() const { return process_.get(); }

    /// Its top-level windows that are visible, the topmost first.
    std::vector<HWND> visibleWindows() const;
    /// Null while there is none on the screen.
    HWND mainWindow() const;
    /// The window that the keyboard goes to; null when it goes to none of the program's.
    HWND focusedWindow() const;

    std::vector<StartedProgram> startedPrograms() const;

  private:
    std::vector<DWORD> startedProcesses() const;

    UniqueHandle process_;
    DWORD processId_ = 0;
    /// Of the one thread that has windows.
    DWORD threadId_ = 0;
};

}  // namespace quorvel::scenario
