#include "tests/realwindow/Bench.h"

#include <utility>

#include "platform/win32/WindowsShell.h"

namespace quorvel::scenario {

namespace {

/// As the program sees the machine.
const WindowsShell& system() {
    static const WindowsShell shell(CodePage::windows1252());
    return shell;
}

}  // namespace

Bench::Bench(std::filesystem::path program, std::filesystem::path printing)
    : program_(std::move(program)),
      printing_(std::move(printing)),
      screen_(system().screenSize()),
      layout_(layoutFor(screen_, system().largestClientArea().height)),
      glyphs_(program_, layout_.small ? CanvasSize::Small : CanvasSize::Wide) {}

}  // namespace quorvel::scenario
