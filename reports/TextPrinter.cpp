#include "reports/TextPrinter.h"

#include <algorithm>

namespace quorvel {

namespace {

/// Tabs, line breaks and form feeds: inside a text they would break the columns and pages around
/// it.
bool breaksLayout(char character) {
    return character >= '\t' && character <= '\r';
}

}  // namespace

Paper TextPrinter::startJob(const PrintJobSettings& settings) {
    jobTitle_ = settings.title;
    orientation_ = settings.orientation;
    pages_.assign(1, {});
    fonts_.clear();
    return {.printable = page_};
}

void TextPrinter::startPage() {
    pages_.emplace_back();
}

void TextPrinter::endJob() {
    for (std::size_t page = 0; page < pages_.size(); ++page) {
        if (page > 0) text_ += '\f';
        for (const std::string& line : pages_[page]) {
            text_.append(line, 0, line.find_last_not_of(' ') + 1);
            text_ += '\n';
        }
    }
}

void TextPrinter::cancelJob() noexcept {
    pages_.clear();
}

FontMeasure TextPrinter::selectFont(const PrintFont& font, int) {
    fonts_.push_back(font);
    return {1, 1};
}

int TextPrinter::textWidth(std::string_view text) {
    return static_cast<int>(text.size());
}

void TextPrinter::printText(int left, int top, std::string_view text) {
    Page& page = pages_.back();
    const auto row = static_cast<std::size_t>(top);
    if (page.size() <= row) page.resize(row + 1);
    std::string& line = page[row];
    const auto column = static_cast<std::size_t>(left);
    if (line.size() < column + text.size()) line.resize(column + text.size(), ' ');
    std::replace_copy_if(text.begin(), text.end(), line.begin() + left, breaksLayout, ' ');
}

}  // namespace quorvel
