#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tests/scenario/Driver.h"

namespace quorvel::scenario {

/// The printer of a bench has so many dots an inch.
inline constexpr int dotsPerInch = 300;
inline constexpr double dotsPerPoint = dotsPerInch / 72.0;

/// A character on paper, in dots from the upper left corner of the upright page.
struct PrintedCharacter {
    int left = 0;
    int right = 0;
    int baseline = 0;
    char16_t character = 0;
};

struct PrintedPage {
    bool landscape = false;
    std::vector<PrintedCharacter> characters;
};

struct FontOnPaper {
    std::string name;
    double size = 0;  // points

    bool operator==(const FontOnPaper&) const = default;
};

struct PrintedPages {
    std::vector<PrintedPage> pages;
    std::vector<FontOnPaper> fonts;  // each once
};

/// Reads what was written beside the PDF of a job: its characters and their places. Throws
/// ScenarioError for anything else.
PrintedPages parsePrintedPages(std::string_view description);

/// The lines of a page, every character in its column. Each of `dates`, written like the system
/// does, reads DATE there, and a time behind it TIME.
std::vector<std::string> linesOf(const PrintedPage& page, const FontOnPaper& font,
                                 std::span<const std::string> dates);

/// The font as the program knows it.
PrintFont fontOf(const FontOnPaper& font);

}  // namespace quorvel::scenario
