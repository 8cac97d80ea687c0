#pragma once

#include <array>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <vector>

#include "tests/fakes/FakeClock.h"
#include "tests/fakes/FakeShell.h"
#include "tests/fakes/MemoryFiles.h"
#include "tests/fakes/UnusedPorts.h"
#include "window/frmQRV.h"

namespace quorvel {

/// A canvas that nothing is drawn on.
class NullCanvas final : public Canvas {
  public:
    void load(const std::filesystem::path&, CanvasSize) override {}
    void release() override {}
    void copyGlyph(Surface, int, int, int) override {}
    void show() override {}
};

/// A canvas of 32-bit pixels in memory.
class PixelCanvas final : public Canvas {
  public:
    /// As many glyphs stand beside each other without overlapping.
    static constexpr int glyphsAcross = wideWidth / glyphWidth;

    void load(const std::filesystem::path&, CanvasSize) override {}
    void release() override {}
    void copyGlyph(Surface surface, int glyph, int x, int y) override {
        auto& target = pixels_[surface == Surface::Grid ? 0 : 1];
        const auto& source = glyphs_[static_cast<std::size_t>(glyph)];
        for (int line = 0; line < glyphHeight; ++line)
            std::memcpy(&target[static_cast<std::size_t>((y + line) * wideWidth + x)],
                        &source[static_cast<std::size_t>(line * glyphWidth)],
                        glyphWidth * sizeof(std::uint32_t));
        ++copies;
    }
    void show() override {}

    /// The glyphs copied so far.
    int copies = 0;

  private:
    using Glyph = std::array<std::uint32_t, glyphWidth * glyphHeight>;

    std::array<Glyph, glyphCount> glyphs_{};
    using Pixels = std::vector<std::uint32_t>;

    std::array<Pixels, 2> pixels_{Pixels(wideWidth * gridHeight), Pixels(wideWidth* bottomHeight)};
};

/// Somebody who opens one file and leaves everything else as it is.
class OneFileDialogs final : public Dialogs {
  public:
    explicit OneFileDialogs(std::filesystem::path file) : file_(std::move(file)) {}

    std::string prompt(const Prompt&) override { return {}; }
    Answer message(const Message&) override { return Answer::No; }
    std::optional<std::filesystem::path> openFile(std::string_view,
                                                  const std::filesystem::path&) override {
        return file_;
    }
    std::optional<std::filesystem::path> saveFile(std::string_view,
                                                  const std::filesystem::path&) override {
        return std::nullopt;
    }
    std::optional<PrintFont> chooseFont(const PrintFont&) override { return std::nullopt; }
    bool passwordWindow(std::string_view, const SubmitPassword&) override { return true; }

  private:
    std::filesystem::path file_;
};

/// The main window with a sample class opened in it.
class OpenedWindow {
  public:
    OpenedWindow(Canvas& canvas, int students, int assignments);

    frmQRV& form() { return form_; }
    /// Opens the editor over a cell on screen; rows and columns count from 0.
    void clickCell(int row, int column);

  private:
    inline static const std::filesystem::path file = "/Quorvel/Grades/class.qrv";

    OneFileDialogs dialogs_{file};
    MemoryFiles files_;
    UnusedPrinter printer_;
    FakeClock clock_;
    FakeShell shell_;
    frmQRV form_;
};

}  // namespace quorvel
