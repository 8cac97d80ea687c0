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
    jobStart_ = text_.size();
    lines_.clear();
    pageCount_ = 1;
    fonts_.clear();
    return {.printable = page_};
}

void TextPrinter::startPage() {
    endPage();
    text_ += '\f';
    ++pageCount_;
}

void TextPrinter::endJob() {
    endPage();
    jobStart_ = text_.size();
}

void TextPrinter::endPage() {
    for (const std::string& line : lines_) {
        text_.append(line, 0, line.find_last_not_of(' ') + 1);
        text_ += '\n';
    }
    lines_.clear();
}

void TextPrinter::cancelJob() noexcept {
    text_.resize(jobStart_);
    pageCount_ = 0;
}

FontMeasure TextPrinter::selectFont(const PrintFont& font, int) {
    fonts_.push_back(font);
    return {1, 1};
}

int TextPrinter::textWidth(std::string_view text) {
    return static_cast<int>(text.size());
}

void TextPrinter::printText(int left, int top, std::string_view text) {
    const auto row = static_cast<std::size_t>(top);
    if (lines_.size() <= row) lines_.resize(row + 1);
    std::string& line = lines_[row];
    const auto column = static_cast<std::size_t>(left);
    if (line.size() < column + text.size()) line.resize(column + text.size(), ' ');
    std::replace_copy_if(text.begin(), text.end(), line.begin() + left, breaksLayout, ' ');
}

}  // namespace quorvel
