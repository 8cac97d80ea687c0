#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/ports/Printer.h"

namespace quorvel {

/// A printer of 300 dots per inch that keeps what was printed as lines of text. Every font is
/// measured as Courier New of its size is.
class FakePrinter final : public Printer {
  public:
    /// The printable area of the paper, upright: Letter.
    static constexpr PageSize paper{2550, 3300};

    enum class State { Ready, None, Fails };

    struct Job {
        std::string title;
        Orientation orientation = Orientation::Portrait;
        /// The lines of each page, without blanks at their ends and without empty lines at its end.
        std::vector<std::vector<std::string>> pages;
        /// The fonts that something was printed in, each once.
        std::vector<PrintFont> fonts;
    };

    State state = State::Ready;
    std::vector<Job> jobs;  // those that came out
    int cancelledJobs = 0;

    PageSize startJob(std::string_view title, Orientation orientation) override;
    void startPage() override;
    void endJob() override;
    void cancelJob() noexcept override;
    FontMeasure selectFont(const PrintFont& font, int characterWidth = 0) override;
    int textWidth(std::string_view text) override;
    void printText(int left, int top, std::string_view text) override;

  private:
    struct PrintedText {
        int left = 0;
        int top = 0;
        FontMeasure measure;
        std::string text;
    };

    static std::vector<std::string> linesOf(const std::vector<PrintedText>& page);
    Job& openJob();
    void endPage();

    std::optional<Job> job_;
    std::vector<PrintedText> page_;
    PrintFont font_;
    FontMeasure measure_;
};

}  // namespace quorvel
