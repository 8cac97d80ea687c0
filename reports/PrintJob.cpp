#include "reports/PrintJob.h"

#include <algorithm>
#include <utility>

namespace quorvel {

namespace {

/// Lines that stand closer than this part of their height could no longer be read; a page that
/// would need it goes on on a new one instead.
constexpr int closestPitchNumerator = 3;
constexpr int closestPitchDenominator = 4;

/// Printers cannot print at the very edge of a paper, even where their drivers say so: text keeps
/// this part of an inch from it.
constexpr int marginsInInch = 4;

int marginWithin(int inch, int unprintable) {
    return std::max(0, inch / marginsInInch - unprintable);
}

}  // namespace

PrintJob::PrintJob(Printer& printer, const PrintJobSettings& settings, const PrintFont& font)
    : printer_(printer), font_(font) {
    try {
        const Paper paper = printer_.startJob(settings);
        page_ = textAreaOf(paper);
        measure_ = printer_.selectFont(font_);
        linePitch_ = pitchFor(paper.printable.height / measure_.lineHeight);
    } catch (...) {
        printer_.cancelJob();
        throw;
    }
}

PrintJob::TextArea PrintJob::textAreaOf(const Paper& paper) {
    const Edges& unprintable = paper.unprintable;
    const int left = marginWithin(paper.inch.width, unprintable.left);
    const int top = marginWithin(paper.inch.height, unprintable.top);
    const int right = marginWithin(paper.inch.width, unprintable.right);
    const int bottom = marginWithin(paper.inch.height, unprintable.bottom);
    return {left, top, paper.printable.width - left - right, paper.printable.height - top - bottom};
}

int PrintJob::pitchFor(int lineCount) const {
    const int closestPitch = measure_.lineHeight * closestPitchNumerator / closestPitchDenominator;
    return std::clamp(page_.height / std::max(1, lineCount), closestPitch, measure_.lineHeight);
}

PrintJob::~PrintJob() {
    if (!finished_) printer_.cancelJob();
}

PrintJob& PrintJob::text(std::string_view text) {
    if (line_.empty()) return at(1, text);
    line_.text += text;
    Piece& piece = line_.pieces.back();
    piece.right = piece.left + printer_.textWidth(line_.textOf(line_.pieces.size() - 1));
    return *this;
}

PrintJob& PrintJob::at(int column, std::string_view text) {
    const int left = columnLeft(column);
    if (!line_.empty() && line_.right() > left) endLine();
    line_.pieces.push_back({column, line_.text.size(), left, left + printer_.textWidth(text)});
    line_.text += text;
    return *this;
}

void PrintJob::endLine() {
    if (fittingPage_) {
        heldLines_.push_back(std::exchange(line_, {}));
        return;
    }
    placeLine(line_);
    line_.text.clear();
    line_.pieces.clear();
}

void PrintJob::line(std::string_view content) {
    text(content);
    endLine();
}

void PrintJob::emptyLines(int count) {
    for (int i = 0; i < count; ++i) endLine();
}

void PrintJob::newPage() {
    if (pageIsEmpty_) return;
    printer_.startPage();
    top_ = 0;
    pageIsEmpty_ = true;
}

void PrintJob::beginFittedPage(const PrintFont& font, int columns) {
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

void PrintJob::endFittedPage() {
    fittingPage_ = false;
    linePitch_ = pitchFor(static_cast<int>(heldLines_.size()));
    for (Line& held : std::exchange(heldLines_, {})) placeLine(held);
}

void PrintJob::finish() {
    printer_.endJob();
    finished_ = true;
}

int PrintJob::columnLeft(int column) const {
    return (column - 1) * measure_.averageCharacterWidth;
}

std::string_view PrintJob::Line::textOf(std::size_t piece) const {
    const std::size_t end = piece + 1 < pieces.size() ? pieces[piece + 1].start : text.size();
    return std::string_view(text).substr(pieces[piece].start, end - pieces[piece].start);
}

/// Puts every piece at its column in the selected font, or behind the piece before it.
void PrintJob::layOut(Line& line) {
    int right = 0;
    for (std::size_t i = 0; i < line.pieces.size(); ++i) {
        Piece& piece = line.pieces[i];
        piece.left = std::max(columnLeft(piece.column), right);
        piece.right = piece.left + printer_.textWidth(line.textOf(i));
        right = piece.right;
    }
}

/// Lays the line out in characters as narrow as the page needs, which stay selected.
void PrintJob::narrowToPage(Line& line) {
    const int wanted = line.right();
    const auto scaled = std::int64_t{measure_.averageCharacterWidth} * page_.width / wanted;
    for (int width = std::max(1, static_cast<int>(scaled)); width >= 1; --width) {
        measure_ = printer_.selectFont(font_, width);
        layOut(line);
        if (line.right() <= page_.width) return;
    }
}

void PrintJob::placeLine(Line& line) {
    if (top_ + linePitch_ > page_.height) newPage();
    const bool tooWide = !line.empty() && line.right() > page_.width;
    if (tooWide) narrowToPage(line);
    // An empty line is printed, too: a printer of plain text then knows that it is there.
    const int top = page_.top + top_;
    if (line.empty()) printer_.printText(page_.left, top, "");
    for (std::size_t i = 0; i < line.pieces.size(); ++i)
        printer_.printText(page_.left + line.pieces[i].left, top, line.textOf(i));
    if (tooWide) measure_ = printer_.selectFont(font_, characterWidth_);
    top_ += linePitch_;
    pageIsEmpty_ = false;
}

}  // namespace quorvel
