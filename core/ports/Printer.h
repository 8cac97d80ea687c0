#pragma once

#include <string_view>

#include "core/PrintFont.h"

namespace quorvel {

enum class Orientation { Portrait, Landscape };

/// Lengths in the printer's own units (dots, or characters on a text printer).
struct PageSize {
    int width = 0;
    int height = 0;
};

struct FontMeasure {
    int averageCharacterWidth = 0;
    int lineHeight = 0;
};

/// The system's default printer, one job at a time. Every function but cancelJob throws
/// PrinterError with the reason when the printer is missing or fails.
class Printer {
  public:
    virtual ~Printer() = default;

    /// Opens a job named `title` and its first page.
    virtual PageSize startJob(std::string_view title, Orientation orientation) = 0;
    /// Ends the page under way and starts the next one.
    virtual void startPage() = 0;
    /// Ends the page under way and hands the job to the system.
    virtual void endJob() = 0;
    /// Drops the job; nothing comes out of the printer. Without a job it does nothing.
    virtual void cancelJob() noexcept = 0;

    /// Makes `font` the font of what follows. A `characterWidth` above 0 asks for characters of
    /// that average width at the font's own height.
    virtual FontMeasure selectFont(const PrintFont& font, int characterWidth = 0) = 0;
    /// The width of `text` in the selected font.
    virtual int textWidth(std::string_view text) = 0;
    /// Prints `text` with its upper left corner at `left`, `top`. In a fixed-pitch font every
    /// character takes exactly the average width.
    virtual void printText(int left, int top, std::string_view text) = 0;
};

}  // namespace quorvel
