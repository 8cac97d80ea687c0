#include <algorithm>
#include <cmath>
#include <map>
#include <numeric>

#include "core/CodePage.h"
#include "tests/realwindow/PrintedPage.h"

namespace quorvel::scenario {

namespace {

/// What the program keeps free at the left and the top.
constexpr int margin = dotsPerInch / 4;
/// Of the font's height in dots: how far above its baseline a line of text begins, what lines are
/// apart usually, at most and at least, and the width of a character of fixed pitch.
constexpr double ascentPart = 0.8333;
constexpr double usualPitchPart = 1.14;
constexpr double largestPitchPart = 1.25;
constexpr double smallestPitchPart = 0.7;
constexpr double characterWidthPart = 0.6;

constexpr std::string_view fixedPitchFont = "Courier New";

/// Characters that were printed one behind the other, and the column that the first stands in.
struct Run {
    int column = 0;
    std::u16string text;
};

/// The dots from one line to the next: lines are whole multiples of them apart.
int linePitchOf(const PrintedPage& page, double fontHeight) {
    int distance = 0;
    for (const PrintedCharacter& character : page.characters)
        distance = std::gcd(distance, character.baseline - page.characters.front().baseline);
    if (distance == 0) return static_cast<int>(std::lround(fontHeight * usualPitchPart));
    int pitch = distance;
    for (int lines = 1; pitch >= fontHeight * smallestPitchPart; pitch = distance / ++lines)
        if (distance % lines == 0 && pitch <= fontHeight * largestPitchPart) return pitch;
    throw ScenarioError("the lines of a printed page do not stand evenly");
}

/// The dots from one character to the next in a line of fixed pitch: what most of them are apart.
int characterPitchOf(const std::vector<PrintedCharacter>& line, int fallback) {
    std::map<int, int> distances;
    for (std::size_t index = 1; index < line.size(); ++index)
        ++distances[line[index].left - line[index - 1].left];
    int pitch = fallback;
    int most = 0;
    for (const auto& [distance, count] : distances) {
        if (distance <= 0 || distance > fallback || count <= most) continue;
        pitch = distance;
        most = count;
    }
    return pitch;
}

std::vector<Run> runsOf(const std::vector<PrintedCharacter>& line, int pitch, bool fixedPitch) {
    std::vector<Run> runs;
    int expected = 0;
    for (const PrintedCharacter& character : line) {
        const int gap = character.left - expected;
        if (runs.empty() || gap > pitch / 2 || gap < -pitch / 2) {
            const auto column = std::lround(static_cast<double>(character.left - margin) / pitch);
            runs.push_back({static_cast<int>(column), {}});
        }
        runs.back().text += character.character;
        expected = fixedPitch ? character.left + pitch : character.right;
    }
    return runs;
}

bool isTimeCharacter(char character) {
    constexpr std::string_view timeCharacters = "0123456789:";
    return timeCharacters.find(character) != std::string_view::npos;
}

/// Where a time such as "2:15:07 PM" that begins at `start` ends.
std::size_t endOfTime(std::string_view text, std::size_t start) {
    while (start < text.size() && isTimeCharacter(text[start])) ++start;
    const std::string_view half = text.substr(start, 3);
    return half == " AM" || half == " PM" ? start + half.size() : start;
}

std::string withoutDateAndTime(std::string text, std::span<const std::string> dates) {
    constexpr std::string_view between = " at ";
    for (const std::string& written : dates) {
        const std::size_t date = text.find(written);
        if (date == std::string::npos) continue;
        text.replace(date, written.size(), "DATE");
        const std::size_t behind = date + 4;
        if (text.compare(behind, between.size(), between) == 0) {
            const std::size_t time = behind + between.size();
            text.replace(time, endOfTime(text, time) - time, "TIME");
        }
        break;
    }
    return text;
}

std::string lineOf(std::vector<PrintedCharacter> characters, const FontOnPaper& font,
                   std::span<const std::string> dates) {
    std::ranges::stable_sort(characters, {}, &PrintedCharacter::left);
    const bool fixedPitch = fontOf(font).name == fixedPitchFont;
    const auto width = static_cast<int>(std::lround(font.size * dotsPerPoint * characterWidthPart));
    const int pitch = fixedPitch ? characterPitchOf(characters, width) : width;
    std::string line;
    for (const Run& run : runsOf(characters, pitch, fixedPitch)) {
        const std::string text =
            withoutDateAndTime(CodePage::windows1252().fromUtf16(run.text), dates);
        const auto column = std::max(static_cast<std::size_t>(run.column), line.size());
        line.resize(column, ' ');
        line += text;
    }
    line.erase(line.find_last_not_of(' ') + 1);
    return line;
}

}  // namespace

std::vector<std::string> linesOf(const PrintedPage& page, const FontOnPaper& font,
                                 std::span<const std::string> dates) {
    const double fontHeight = font.size * dotsPerPoint;
    const double first = margin + fontHeight * ascentPart;
    const int pitch = linePitchOf(page, fontHeight);
    std::map<long, std::vector<PrintedCharacter>> rows;
    for (const PrintedCharacter& character : page.characters)
        rows[std::lround((character.baseline - first) / pitch)].push_back(character);

    std::vector<std::string> lines;
    for (auto& [row, characters] : rows) {
        lines.resize(static_cast<std::size_t>(std::max(row, 0L)));
        lines.push_back(lineOf(std::move(characters), font, dates));
    }
    while (!lines.empty() && lines.back().empty()) lines.pop_back();
    return lines;
}

}  // namespace quorvel::scenario
