#include "tests/realwindow/TextReader.h"

#include <algorithm>
#include <climits>
#include <map>

#include "core/CodePage.h"
#include "tests/realwindow/Picture.h"

namespace quorvel::scenario {

namespace {

/// Every character of the code page that can be seen, and the blank.
std::wstring readableCharacters() {
    std::string bytes;
    for (int code = ' '; code <= 0xFF; ++code) bytes += static_cast<char>(code);
    const std::u16string characters = CodePage::windows1252().toUtf16(bytes);
    return {characters.begin(), characters.end()};
}

int topOf(const Ink& ink) {
    int top = INT_MAX;
    for (const auto& [x, y] : ink) top = std::min(top, y);
    return top;
}

/// The ink moved to the upper left corner.
Ink cornered(const Ink& ink) {
    Ink moved;
    const int left = ink.begin()->first;
    const int top = topOf(ink);
    for (const auto& [x, y] : ink) moved.emplace(x - left, y - top);
    return moved;
}

}  // namespace

/// The text found so far, and how much of what is shown it explains.
class TextReader::Search {
  public:
    /// The characters are drawn with their upper edge at `y`.
    Search(const Ink& shown, int y)
        : shown_(shown), y_(y), left_(shown.begin()->first), right_(shown.rbegin()->first) {
        columns_.resize(static_cast<std::size_t>(right_ - left_ + 1));
        for (const auto& [x, row] : shown) columns_[index(x)][row] = 0;
    }

    const Ink& shown() const { return shown_; }
    const std::wstring& text() const { return text_; }
    int right() const { return right_; }
    bool explainsAll() const { return explainedUpTo(right_ + 1); }

    /// Whether all ink before column x belongs to a character that was found.
    bool explainedUpTo(int x) const {
        for (int column = left_; column < std::min(x, right_ + 1); ++column)
            for (const auto& [row, times] : columns_[index(column)])
                if (times == 0) return false;
        return true;
    }

    /// Whether all of the glyph's ink is shown.
    bool fits(const Glyph& glyph, int x) const {
        return std::ranges::all_of(glyph.ink, [&](const Pixel& pixel) {
            const int column = x + pixel.first;
            return column >= left_ && column <= right_ &&
                   columns_[index(column)].contains(y_ + pixel.second);
        });
    }

    void add(const Glyph& glyph, int x) {
        for (const auto& [column, row] : glyph.ink) ++columns_[index(x + column)][y_ + row];
        text_ += glyph.character;
    }

    void remove(const Glyph& glyph, int x) {
        for (const auto& [column, row] : glyph.ink) --columns_[index(x + column)][y_ + row];
        text_.pop_back();
    }

  private:
    std::size_t index(int x) const { return static_cast<std::size_t>(x - left_); }

    const Ink& shown_;
    int y_;
    int left_;
    int right_;
    /// Of each column the rows with ink, and how many characters explain each.
    std::vector<std::map<int, int>> columns_;
    std::wstring text_;
};

TextReader::TextReader(const LOGFONTW& font) : font_(CreateFontIndirectW(&font)) {
    const WindowDC screen(nullptr);
    const UniqueDC context(CreateCompatibleDC(screen.get()));
    const SelectedObject selectedFont(context.get(), font_.get());
    TEXTMETRICW metrics{};
    GetTextMetricsW(context.get(), &metrics);
    height_ = static_cast<int>(metrics.tmHeight);
    for (const wchar_t character : readableCharacters()) {
        SIZE size{};
        GetTextExtentPoint32W(context.get(), &character, 1, &size);
        Ink ink = inkOf({character}, 2 * height_);
        if (size.cx > 0 && (!ink.empty() || character == L' '))
            glyphs_.push_back({character, static_cast<int>(size.cx), {ink.begin(), ink.end()}});
    }
}

/// What the system draws for the text.
Ink TextReader::inkOf(const std::wstring& text, int width) const {
    const WindowDC screen(nullptr);
    const UniqueDC context(CreateCompatibleDC(screen.get()));
    const int left = height_;  // some letters reach back
    const UniqueBitmap ground(CreateCompatibleBitmap(screen.get(), left + width, height_));
    const SelectedObject selectedGround(context.get(), ground.get());
    const SelectedObject selectedFont(context.get(), font_.get());
    PatBlt(context.get(), 0, 0, left + width, height_, WHITENESS);
    TextOutW(context.get(), left, 0, text.c_str(), static_cast<int>(text.size()));
    const Picture drawn = pictureOf(context.get(), 0, 0, left + width, height_);
    constexpr std::uint32_t white = 0xFFFFFF;
    Ink ink;
    for (int y = 0; y < drawn.height(); ++y)
        for (int x = 0; x < drawn.width(); ++x)
            if (drawn.at(x, y) != white) ink.emplace(x - left, y);
    return ink;
}

std::optional<std::wstring> TextReader::read(const Ink& shown) const {
    if (shown.empty()) return std::wstring();
    const int top = topOf(shown);
    for (int y = top - height_; y <= top; ++y) {
        Search search(shown, y);
        for (const Glyph& first : glyphs_) {
            if (first.ink.empty()) continue;
            const int x = shown.begin()->first - first.ink.front().first;
            if (place(search, first, x)) return search.text();
        }
    }
    return std::nullopt;
}

/// Takes the glyph at x and reads on behind it; leaves the search as it was where that fails.
bool TextReader::place(Search& search, const Glyph& glyph, int x) const {
    if (!search.fits(glyph, x)) return false;
    search.add(glyph, x);
    // The next character may begin in the last columns of this one.
    constexpr int sharedColumns = 2;
    const int next = x + glyph.advance;
    if (search.explainedUpTo(next - sharedColumns) && readOn(search, next)) return true;
    search.remove(glyph, x);
    return false;
}

bool TextReader::readOn(Search& search, int x) const {
    if (search.explainsAll()) return isWhatIsShown(search.text(), search.shown());
    if (x > search.right() + 1) return false;
    for (const Glyph& glyph : glyphs_) {
        if (place(search, glyph, x)) return true;
        // In a line of text, characters stand at the nearest pixel of places between pixels.
        if (glyph.ink.empty()) continue;
        if (place(search, glyph, x + 1) || place(search, glyph, x - 1)) return true;
    }
    return false;
}

bool TextReader::isWhatIsShown(const std::wstring& text, const Ink& shown) const {
    const int width = shown.rbegin()->first - shown.begin()->first + 2 * height_;
    const Ink drawn = inkOf(text, width);
    return !drawn.empty() && cornered(drawn) == cornered(shown);
}

}  // namespace quorvel::scenario
