#pragma once

#include <string>
#include <utility>
#include <vector>

#include "core/ports/Printer.h"

namespace quorvel {

/// A printer of dots that keeps every piece of text with its place, and fails when it is told to.
/// Its font is 20 dots high and on average 10 wide.
class RecordingPrinter final : public Printer {
  public:
    static constexpr int lineHeight = 20;
    static constexpr int ownCharacterWidth = 10;

    struct Piece {
        int page = 0;
        int left = 0;
        int top = 0;
        int right = 0;
        int characterWidth = 0;
        std::string text;
    };

    explicit RecordingPrinter(PageSize printable) : paper{.printable = printable} {}

    /// In a proportional font capital letters are half as wide again as the average.
    bool isProportional = false;
    /// The call that fails, counted from 1; 0 for none.
    int failingCall = 0;

    /// Whether the user cancels the box that the printer shows where a job starts.
    bool calledOff = false;

    std::vector<Piece> pieces;
    /// The fonts with the character widths asked for.
    std::vector<std::pair<PrintFont, int>> selections;
    /// What happened to jobs and pages: "start Class Report", "page", "end", "cancel".
    std::vector<std::string> calls;
    Paper paper;
    /// Of the job started last.
    Orientation orientation = Orientation::Portrait;
    bool oneSided = false;

    Paper startJob(const PrintJobSettings& settings) override;
    void startPage() override;
    void endJob() override;
    void cancelJob() noexcept override { calls.emplace_back("cancel"); }
    FontMeasure selectFont(const PrintFont& font, int characterWidth = 0) override;
    int textWidth(std::string_view text) override;
    void printText(int left, int top, std::string_view text) override;

    int callCount() const { return callCount_; }

  private:
    void count();

    int callCount_ = 0;
    int pageNumber_ = 0;
    int characterWidth_ = ownCharacterWidth;
};

}  // namespace quorvel
