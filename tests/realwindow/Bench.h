#pragma once

#include <filesystem>

#include "tests/realwindow/GlyphReader.h"
#include "tests/scenario/Scenario.h"
#include "window/Layout.h"

namespace quorvel::scenario {

/// What the machine offers to the scenarios that run on it.
class Bench {
  public:
    /// `program` is the folder of the built program, `printing` that of the print queue; it is
    /// empty where there is no printer.
    Bench(std::filesystem::path program, std::filesystem::path printing);

    const std::filesystem::path& program() const { return program_; }
    const std::filesystem::path& printing() const { return printing_; }
    ScreenSize screen() const { return screen_; }
    PrinterState printer() const {
        return printing_.empty() ? PrinterState::None : PrinterState::Ready;
    }
    /// How the program lays its window out on this screen.
    const Layout& layout() const { return layout_; }
    const GlyphReader& glyphs() const { return glyphs_; }

  private:
    std::filesystem::path program_;
    std::filesystem::path printing_;
    ScreenSize screen_;
    Layout layout_;
    GlyphReader glyphs_;
};

}  // namespace quorvel::scenario
