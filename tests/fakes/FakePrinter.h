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
    static constexpr int dotsPerInch = 300;
    /// The paper, upright: Letter, which can be printed on from edge to edge.
    static constexpr PageSize paper{2550, 3300};
    /// What a job keeps free at each edge.
    static constexpr int margin = dotsPerInch / 4;

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

    Paper startJob(const PrintJobSettings& settings) override;
    void startPage() override;
    void endJob() override;
    void cancelJob() noexcept override;
    FontMeasure selectFont(const PrintFont& font, int characterWidth = 0) override;
    int textWidth(std::string_view text) override;
    void printText(int left, int top, std::string_view text) override;

  private:
    /// Places count from the corner that the margins leave.
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
