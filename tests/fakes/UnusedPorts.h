#pragma once

#include <stdexcept>
#include <string>

#include "core/ports/Canvas.h"
#include "core/ports/Clock.h"
#include "core/ports/Printer.h"

namespace quorvel {

/// For code that must do without a printer, a canvas or a clock: every call is an error.
class UnusedPrinter final : public Printer {
  public:
    Paper startJob(const PrintJobSettings&) override { fail(); }
    void startPage() override { fail(); }
    void endJob() override { fail(); }
    void cancelJob() noexcept override {}
    FontMeasure selectFont(const PrintFont&, int) override { fail(); }
    int textWidth(std::string_view) override { fail(); }
    void printText(int, int, std::string_view) override { fail(); }

  private:
    [[noreturn]] static void fail() { throw std::logic_error("printing was not expected"); }
};

class UnusedCanvas final : public Canvas {
  public:
    void load(const std::filesystem::path&, CanvasSize) override { fail(); }
    void release() override { fail(); }
    void copyGlyph(Surface, int, int, int) override { fail(); }
    void show() override { fail(); }

  private:
    [[noreturn]] static void fail() { throw std::logic_error("drawing was not expected"); }
};

class UnusedClock final : public Clock {
  public:
    std::string date() const override { fail(); }
    std::string time() const override { fail(); }

  private:
    [[noreturn]] static void fail() { throw std::logic_error("the time was not expected"); }
};

}  // namespace quorvel
