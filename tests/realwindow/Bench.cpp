#include "tests/realwindow/Bench.h"

#include <utility>

#include <windows.h>

namespace quorvel::scenario {

namespace {

ScreenSize systemScreen() {
    return {GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
}

}  // namespace

Bench::Bench(std::filesystem::path program, std::filesystem::path printing)
    : program_(std::move(program)),
      printing_(std::move(printing)),
      screen_(systemScreen()),
      layout_(layoutFor(screen_)),
      glyphs_(program_, layout_.small ? CanvasSize::Small : CanvasSize::Wide) {}

}  // namespace quorvel::scenario
