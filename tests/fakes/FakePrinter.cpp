#include "tests/fakes/FakePrinter.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <utility>

#include "core/Errors.h"

namespace quorvel {

namespace {

constexpr double dotsPerPoint = FakePrinter::dotsPerInch / 72.0;
/// Courier New's character width and line height as parts of its size.
constexpr double characterWidthPart = 0.6;
constexpr double lineHeightPart = 1.1328;

void withoutTrailingBlanks(std::string& line) {
    line.erase(line.find_last_not_of(' ') + 1);
}

}  // namespace

FakePrinter::Job& FakePrinter::openJob() {
    if (!job_) throw std::logic_error("nothing can be printed without a job");
    return *job_;
}

Paper FakePrinter::startJob(const PrintJobSettings& settings) {
    if (state == State::None) throw PrinterError("There is no default printer.");
    if (job_) throw std::logic_error("a job is under way already");
    job_ = Job{};
    job_->title = settings.title;
    job_->orientation = settings.orientation;
    page_.clear();
    const bool isUpright = settings.orientation == Orientation::Portrait;
    return {.printable = isUpright ? paper : PageSize{paper.height, paper.width},
            .unprintable = {},
            .inch = {dotsPerInch, dotsPerInch}};
}

void FakePrinter::startPage() {
    endPage();
}

void FakePrinter::endJob() {
    endPage();
    jobs.push_back(std::move(*job_));
    job_.reset();
}

void FakePrinter::cancelJob() noexcept {
    if (job_) ++cancelledJobs;
    job_.reset();
    page_.clear();
}

FontMeasure FakePrinter::selectFont(const PrintFont& font, int characterWidth) {
    openJob();
    const double height = std::round(static_cast<double>(font.size) * dotsPerPoint);
    font_ = font;
    measure_.averageCharacterWidth =
        characterWidth > 0 ? characterWidth
                           : static_cast<int>(std::lround(height * characterWidthPart));
    measure_.lineHeight = static_cast<int>(height * lineHeightPart);
    return measure_;
}

int FakePrinter::textWidth(std::string_view text) {
    openJob();
    return static_cast<int>(text.size()) * measure_.averageCharacterWidth;
}

void FakePrinter::printText(int left, int top, std::string_view text) {
    Job& job = openJob();
    if (state == State::Fails) throw PrinterError("The printer failed.");
    if (measure_.averageCharacterWidth == 0) throw std::logic_error("no font is selected");
    if (std::ranges::find(job.fonts, font_) == job.fonts.end()) job.fonts.push_back(font_);
    page_.push_back({left - margin, top - margin, measure_, std::string(text)});
}

void FakePrinter::endPage() {
    openJob().pages.push_back(linesOf(page_));
    page_.clear();
}

std::vector<std::string> FakePrinter::linesOf(const std::vector<PrintedText>& page) {
    // The pitch of the lines is that of the font, or a narrower one where lines stand closer.
    std::vector<int> tops;
    int pitch = 0;
    for (const PrintedText& text : page) {
        tops.push_back(text.top);
        pitch = std::max(pitch, text.measure.lineHeight);
    }
    std::ranges::sort(tops);
    for (std::size_t index = 1; index < tops.size(); ++index)
        if (tops[index] > tops[index - 1]) pitch = std::min(pitch, tops[index] - tops[index - 1]);

    std::vector<std::string> lines;
    for (const PrintedText& text : page) {
        const auto row = static_cast<std::size_t>(text.top / pitch);
        const auto column =
            static_cast<std::size_t>(text.left / text.measure.averageCharacterWidth);
        if (lines.size() <= row) lines.resize(row + 1);
        std::string& line = lines[row];
        if (line.size() < column + text.text.size()) line.resize(column + text.text.size(), ' ');
        line.replace(column, text.text.size(), text.text);
    }
    std::ranges::for_each(lines, withoutTrailingBlanks);
    while (!lines.empty() && lines.back().empty()) lines.pop_back();
    return lines;
}

}  // namespace quorvel
