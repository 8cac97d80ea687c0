#include <filesystem>

#include <windows.h>

#include "tests/speed/window/EmptyWindow.h"

// empty_window [TEXT], a path as it is
int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR text, int) {
    quorvel::runEmptyWindow(text);
    return 0;
}
