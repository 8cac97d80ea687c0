#pragma once

#include <climits>
#include <string>
#include <vector>

#include "core/ports/Printer.h"

namespace quorvel {

/// A printer that makes plain text: its unit is the character, and unless told otherwise its page
/// has no end, so a form feed stands only where a report itself starts a page.
class TextPrinter final : public Printer {
  public:
    static constexpr PageSize endlessPage{INT_MAX / 2, INT_MAX / 2};

    explicit TextPrinter(PageSize page = endlessPage) : page_(page) {}

    Paper startJob(const PrintJobSettings& settings) override;
    void startPage() override;
    void endJob() override;
    void cancelJob() noexcept override;
    FontMeasure selectFont(const PrintFont& font, int characterWidth = 0) override;
    int textWidth(std::string_view text) override;
    void printText(int left, int top, std::string_view text) override;

    /// The jobs that were not cancelled as text: lines ended by LF, no blanks at their ends, a form
    /// feed directly before the first line of every page but a job's first.
    const std::string& text() const { return text_; }

    const std::string& jobTitle() const { return jobTitle_; }
    Orientation orientation() const { return orientation_; }
    /// The pages of the job under way or last ended; 0 when it was cancelled.
    int pageCount() const { return pageCount_; }
    /// Every font of the job in the order of its selection.
    const std::vector<PrintFont>& fonts() const { return fonts_; }

  private:
    void endPage();

    PageSize page_;
    std::string text_;
    std::string jobTitle_;
    Orientation orientation_ = Orientation::Portrait;
    std::size_t jobStart_ = 0;        // in the text
    std::vector<std::string> lines_;  // of the page under way
    int pageCount_ = 0;
    std::vector<PrintFont> fonts_;
};

}  // namespace quorvel
