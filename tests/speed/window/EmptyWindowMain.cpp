#include <filesystem>

#include <windows.h>

#include "tests/speed/window/EmptyWindow.h"

// empty_window [TEXT]: the command line is the path as it is
int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR lpCmdLine, int) {
    quorvel::runEmptyWindow(lpCmdLine);
    return 0;
}
