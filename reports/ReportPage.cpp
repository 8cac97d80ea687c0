#include "reports/ReportPage.h"

#include <algorithm>
#include <utility>

namespace quorvel {

namespace {

/// Lines that stand closer than this part of their height could no longer be read; a page that
/// would need it goes on on a new one instead.
constexpr int closestPitchNumerator = 3;
constexpr int closestPitchDenominator = 4;

/// Cancels a job that its report did not bring to an end, startJob's own failure included.
PageSize startJobOrCancel(Printer& printer, std::string_view jobTitle, Orientation orientation) {
    try {
        return printer.startJob(jobTitle, orientation);
    } catch (...) {
        printer.cancelJob();
        throw;
    }
}

}  // namespace

ReportPage::ReportPage(Printer& printer, std::string_view jobTitle, Orientation orientation,
                       const PrintFont& font)
    : printer_(printer), page_(startJobOrCancel(printer, jobTitle, orientation)), font_(font) {
    try {
        measure_ = printer_.selectFont(font_);
    } catch (...) {
        printer_.cancelJob();
        throw;
    }
    linePitch_ = measure_.lineHeight;
}

ReportPage::~ReportPage() {
    if (!finished_) printer_.cancelJob();
}

ReportPage& ReportPage::text(std::string_view text) {
    if (line_.empty()) return at(1, text);
    Piece& piece = line_.back();
    piece.text += text;
    piece.right = piece.left + printer_.textWidth(piece.text);
    return *this;
}

ReportPage& ReportPage::at(int column, std::string_view text) {
    const int left = columnLeft(column);
    if (!line_.empty() && line_.back().right > left) endLine();
    line_.push_back({column, std::string(text), left, left + printer_.textWidth(text)});
    return *this;
}

void ReportPage::endLine() {
    Line ended = std::exchange(line_, {});
    if (fittingPage_) {
        heldLines_.push_back(std::move(ended));
    } else {
        placeLine(std::move(ended));
    }
}

void ReportPage::line(std::string_view content) {
    text(content);
    endLine();
}

void ReportPage::emptyLines(int count) {
    for (int i = 0; i < count; ++i) endLine();
}

void ReportPage::newPage() {
    if (pageIsEmpty_) return;
    printer_.startPage();
    top_ = 0;
    pageIsEmpty_ = true;
}

void ReportPage::beginFittedPage(const PrintFont& font, int columns) {
    newPage();
    font_ = font;
    characterWidth_ = 0;
    measure_ = printer_.selectFont(font_);
    if (columns > page_.width / measure_.averageCharacterWidth) {
        characterWidth_ = std::max(1, page_.width / columns);
        measure_ = printer_.selectFont(font_, characterWidth_);
    }
    fittingPage_ = true;
}

void ReportPage::endFittedPage() {
    fittingPage_ = false;
    const int closestPitch = measure_.lineHeight * closestPitchNumerator / closestPitchDenominator;
    const int lineCount = std::max(1, static_cast<int>(heldLines_.size()));
    linePitch_ = std::clamp(page_.height / lineCount, closestPitch, measure_.lineHeight);
    for (Line& held : std::exchange(heldLines_, {})) placeLine(std::move(held));
}

void ReportPage::finish() {
    printer_.endJob();
    finished_ = true;
}

int ReportPage::columnLeft(int column) const {
    return (column - 1) * measure_.averageCharacterWidth;
}

/// Puts every piece at its column in the selected font, or behind the piece before it.
void ReportPage::layOut(Line& line) {
    int right = 0;
    for (Piece& piece : line) {
        piece.left = std::max(columnLeft(piece.column), right);
        piece.right = piece.left + printer_.textWidth(piece.text);
        right = piece.right;
    }
}

/// Lays the line out in characters as narrow as the page needs, which stay selected.
void ReportPage::narrowToPage(Line& line) {
    const int wanted = line.back().right;
    const auto scaled = std::int64_t{measure_.averageCharacterWidth} * page_.width / wanted;
    for (int width = std::max(1, static_cast<int>(scaled)); width >= 1; --width) {
        measure_ = printer_.selectFont(font_, width);
        layOut(line);
        if (line.back().right <= page_.width) return;
    }
}

void ReportPage::placeLine(Line line) {
    if (top_ + linePitch_ > page_.height) newPage();
    const bool tooWide = !line.empty() && line.back().right > page_.width;
    if (tooWide) narrowToPage(line);
    // An empty line is printed, too: a printer of plain text then knows that it is there.
    if (line.empty()) printer_.printText(0, top_, "");
    for (const Piece& piece : line) printer_.printText(piece.left, top_, piece.text);
    if (tooWide) measure_ = printer_.selectFont(font_, characterWidth_);
    top_ += linePitch_;
    pageIsEmpty_ = false;
}

}  // namespace quorvel
