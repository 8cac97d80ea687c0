#pragma once

#include <string_view>

#include "core/PrintFont.h"

namespace quorvel {

enum class Orientation { Portrait, Landscape };

/// How a job is to be printed.
struct PrintJobSettings {
    std::string_view title;
    Orientation orientation = Orientation::Portrait;
    /// Whether every page needs a sheet of its own, whatever the printer is set to.
    bool oneSided = false;
};

// Lengths are in the printer's own units (dots, or characters on a text printer).

struct PageSize {
    int width = 0;
    int height = 0;
};

struct Edges {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
};

/// What a job is printed on.
struct Paper {
    PageSize printable{};  // where the printer can print, from its upper left corner (0, 0) on
    Edges unprintable{};   // what it leaves free beyond that at each edge
    PageSize inch{};       // an inch across and down; 0 on a paper without edges
};

struct FontMeasure {
    int averageCharacterWidth = 0;
    int lineHeight = 0;
};

/// The system's default printer, one job at a time. Every function but cancelJob throws
/// PrinterError with the reason when the printer is missing or fails, and PrintingCalledOff when
/// the user cancelled the job in a box or a queue of the printer's own.
class Printer {
  public:
    virtual ~Printer() = default;

    /// Opens a job and its first page.
    virtual Paper startJob(const PrintJobSettings& settings) = 0;
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
