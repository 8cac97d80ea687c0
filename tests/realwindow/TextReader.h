#pragma once

#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <windows.h>

#include "platform/win32/Handles.h"

namespace quorvel::scenario {

/// A pixel by its column, then its row.
using Pixel = std::pair<int, int>;
/// The pixels of a line of text that are not its ground.
using Ink = std::set<Pixel>;

/// Reads text of one font off the screen: finds the text that, drawn by the system, leaves just the
/// ink that is shown.
class TextReader {
  public:
    explicit TextReader(const LOGFONTW& font);

    /// Nothing where the ink is no text of the font. Blanks at the ends leave no ink.
    std::optional<std::wstring> read(const Ink& shown) const;

  private:
    struct Glyph {
        wchar_t character = 0;
        int advance = 0;
        std::vector<Pixel> ink;  // from the upper left corner that it is drawn at
    };
    class Search;

    Ink inkOf(const std::wstring& text, int width) const;
    bool readOn(Search& search, int x) const;
    bool place(Search& search, const Glyph& glyph, int x) const;
    bool isWhatIsShown(const std::wstring& text, const Ink& shown) const;

    UniqueFont font_;
    int height_ = 0;
    std::vector<Glyph> glyphs_;
};

}  // namespace quorvel::scenario
