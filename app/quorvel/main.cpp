#include <exception>

#include <windows.h>

#include "core/ProgramName.h"
#include "platform/win32/FormWindow.h"
#include "platform/win32/GdiCanvas.h"
#include "platform/win32/GdiPrinter.h"
#include "platform/win32/SystemClock.h"
#include "platform/win32/SystemPlaces.h"
#include "platform/win32/Texts.h"
#include "platform/win32/WindowsDialogs.h"
#include "platform/win32/WindowsFiles.h"
#include "platform/win32/WindowsShell.h"
#include "window/StartCheck.h"
#include "window/frmQRV.h"

#include <commctrl.h>

namespace quorvel {

namespace {

int runMessageLoop(FormWindow& window) {
    MSG message{};
    while (::GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (window.translate(message)) continue;
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
    return static_cast<int>(message.wParam);
}

int runProgram() {
    // An empty drive is an error for the program to take, not a question of Windows to the user.
    ::SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
    INITCOMMONCONTROLSEX controls{sizeof controls, ICC_STANDARD_CLASSES};
    ::InitCommonControlsEx(&controls);
    const Places places = systemPlaces();
    // Relative paths, such as those of the recent files, count from here.
    ::SetCurrentDirectoryW(places.programFolder.c_str());

    const CodePage codePage = systemCodePage();
    WindowsDialogs dialogs(codePage);
    WindowsFiles files;
    if (const std::string problem = startProblem(places.programFolder, files, codePage);
        !problem.empty()) {
        dialogs.message({.text = problem, .icon = Icon::Critical});
        return 1;
    }
    GdiPrinter printer(codePage);
    GdiCanvas canvas;
    SystemClock clock(codePage);
    WindowsShell shell(codePage);
    const Ports ports{dialogs, files, printer, canvas, clock, shell};
    frmQRV form(ports, places, codePage);
    form.start();
    if (!form.isOpen()) return 0;
    FormWindow window(form, dialogs, canvas, codePage);
    return runMessageLoop(window);
}

}  // namespace

}  // namespace quorvel

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    try {
        return quorvel::runProgram();
    } catch (const std::exception& error) {
        ::MessageBoxA(nullptr, error.what(), quorvel::programName, MB_ICONERROR);
        return 1;
    }
}
