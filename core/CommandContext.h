#pragma once

#include "core/GradeSheet.h"
#include "core/WorkingState.h"
#include "core/ports/Canvas.h"
#include "core/ports/Clock.h"
#include "core/ports/Dialogs.h"
#include "core/ports/Files.h"
#include "core/ports/MainWindow.h"
#include "core/ports/Printer.h"
#include "core/ports/Shell.h"

namespace quorvel {

/// Everything outside the program that it works with. All must outlive the program's window.
struct Ports {
    Dialogs& dialogs;
    Files& files;
    Printer& printer;
    Canvas& canvas;
    Clock& clock;
    Shell& shell;
};

/// What a menu command works on: the one sheet, the state beside it, its window and the ports.
struct CommandContext {
    GradeSheet& sheet;
    WorkingState& state;
    MainWindow& window;
    Ports& ports;
};

}  // namespace quorvel
