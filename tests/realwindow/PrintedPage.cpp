#include "tests/realwindow/PrintedPage.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>

#include "core/CodePage.h"

namespace quorvel::scenario {

namespace {

[[noreturn]] void failUnreadable() {
    throw ScenarioError("what was printed cannot be read");
}

/// The value of an attribute such as size="10.08" in a tag.
std::string_view attribute(std::string_view tag, std::string_view name) {
    const std::string opening = " " + std::string(name) + "=\"";
    const std::size_t start = tag.find(opening);
    if (start == std::string_view::npos) failUnreadable();
    const std::size_t end = tag.find('"', start + opening.size());
    if (end == std::string_view::npos) failUnreadable();
    return tag.substr(start + opening.size(), end - start - opening.size());
}

template <typename Number>
Number number(std::string_view text, int base = 10) {
    Number value{};
    const auto result = [&] {
        if constexpr (std::is_integral_v<Number>)
            return std::from_chars(text.data(), text.data() + text.size(), value, base);
        else
            return std::from_chars(text.data(), text.data() + text.size(), value);
    }();
    if (result.ec != std::errc{}) failUnreadable();
    return value;
}

/// A character as the description writes it.
char16_t characterOf(std::string_view text) {
    constexpr char16_t unbreakableBlank = 0xA0;
    constexpr char16_t softHyphen = 0xAD;
    constexpr std::array<std::pair<std::string_view, char16_t>, 5> names{
        {{"&lt;", u'<'}, {"&gt;", u'>'}, {"&amp;", u'&'}, {"&quot;", u'"'}, {"&apos;", u'\''}}};
    for (const auto& [name, character] : names)
        if (text == name) return character;
    if (text.starts_with("&#x")) {
        const auto code = static_cast<char16_t>(number<unsigned>(text.substr(3), 16));
        // A font has one glyph for each pair, and a PDF does not tell which was meant.
        if (code == unbreakableBlank) return u' ';
        return code == softHyphen ? u'-' : code;
    }
    const CodePage& codePage = CodePage::windows1252();
    const std::u16string decoded = codePage.toUtf16(codePage.fromUtf8(text));
    if (decoded.size() != 1) failUnreadable();
    return decoded.front();
}

/// Points in whole dots: no printer of a bench draws between them.
int dots(std::string_view points) {
    return static_cast<int>(std::lround(number<double>(points) * dotsPerPoint));
}

PrintedCharacter parseCharacter(std::string_view tag) {
    // The corners of a character begin with its upper left and its upper right one.
    std::string_view corners = attribute(tag, "quad");
    for (int skipped = 0; skipped < 2; ++skipped)
        corners.remove_prefix(std::min(corners.find(' ') + 1, corners.size()));
    const std::string_view right = corners.substr(0, corners.find(' '));
    return {dots(attribute(tag, "x")), dots(right), dots(attribute(tag, "y")),
            characterOf(attribute(tag, "c"))};
}

PrintedPage emptyPage(std::string_view tag) {
    return {.landscape =
                number<double>(attribute(tag, "width")) > number<double>(attribute(tag, "height")),
            .characters = {}};
}

/// A font's name without the mark of a part of a font, such as "LFKFMY+".
std::string plainName(std::string_view name) {
    const std::size_t mark = name.find('+');
    return std::string(mark == std::string_view::npos ? name : name.substr(mark + 1));
}

}  // namespace

PrintedPages parsePrintedPages(std::string_view description) {
    PrintedPages job;
    std::size_t position = 0;
    while ((position = description.find('<', position)) != std::string_view::npos) {
        // Every tag ends its line; a ">" may stand inside.
        const std::size_t end = std::min(description.find('\n', position), description.size());
        const std::string_view tag = description.substr(position, end - position);
        position = end;
        if (tag.starts_with("<page")) job.pages.push_back(emptyPage(tag));
        if (tag.starts_with("<font")) {
            FontOnPaper font{plainName(attribute(tag, "name")),
                             number<double>(attribute(tag, "size"))};
            if (std::ranges::find(job.fonts, font) == job.fonts.end())
                job.fonts.push_back(std::move(font));
        }
        if (tag.starts_with("<char")) {
            if (job.pages.empty()) failUnreadable();
            job.pages.back().characters.push_back(parseCharacter(tag));
        }
    }
    return job;
}

PrintFont fontOf(const FontOnPaper& font) {
    // Debian's fonts of the same measures stand in for those of Windows.
    constexpr std::array<std::pair<std::string_view, const char*>, 3> names{
        {{"LiberationMono", "Courier New"},
         {"LiberationSans", "Arial"},
         {"LiberationSerif", "Times New Roman"}}};
    // A size is rounded to whole dots on its way to the paper.
    constexpr float sizesPerPoint = 4;
    PrintFont known{font.name,
                    std::round(static_cast<float>(font.size) * sizesPerPoint) / sizesPerPoint};
    for (const auto& [onPaper, name] : names)
        if (font.name == onPaper) known.name = name;
    return known;
}

}  // namespace quorvel::scenario
