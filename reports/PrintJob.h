#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/ports/Printer.h"

namespace quorvel {

/// One print job, its pages filled line by line. Text keeps off the paper's edges, and yet as many
/// lines fit on a page as without that. The job is cancelled unless finish() is reached.
class PrintJob {
  public:
    PrintJob(Printer& printer, const PrintJobSettings& settings, const PrintFont& font);
    ~PrintJob();
    PrintJob(const PrintJob&) = delete;
    PrintJob& operator=(const PrintJob&) = delete;

    /// Adds to the line under way, directly behind what it holds.
    PrintJob& text(std::string_view text);
    /// Adds `text` from `column` (counted from 1) on. Where the line already reaches past that
    /// column, it ends and the text goes to the same column of the next line.
    PrintJob& at(int column, std::string_view text);
    /// Ends the line under way, which may be empty. A full page goes on at the top of a new one.
    void endLine();
    void line(std::string_view content);
    void emptyLines(int count);
    /// Starts a new page; no effect on a page that is still empty.
    void newPage();

    /// Starts a new page whose characters are as narrow as lines of `columns` characters need, and
    /// whose lines stand as close as all lines until endFittedPage need, within reason.
    void beginFittedPage(const PrintFont& font, int columns);
    void endFittedPage();

    /// Hands the job over. No line may be under way.
    void finish();

  private:
    /// A run of its line's text, up to that of the next piece, from a column on; `left` and `right`
    /// are where it stands in the text area.
    struct Piece {
        int column = 1;
        std::size_t start = 0;
        int left = 0;
        int right = 0;
    };
    struct Line {
        std::string text;
        std::vector<Piece> pieces;

        bool empty() const { return pieces.empty(); }
        int right() const { return empty() ? 0 : pieces.back().right; }
        std::string_view textOf(std::size_t piece) const;
    };

    /// Where text may stand, in the printer's units from the corner of what it can print on.
    struct TextArea {
        int left = 0;
        int top = 0;
        int width = 0;
        int height = 0;
    };

    static TextArea textAreaOf(const Paper& paper);
    /// How close lines stand for so many of them to fit on a page, within reason.
    int pitchFor(int lineCount) const;
    int columnLeft(int column) const;
    void layOut(Line& line);
    void placeLine(Line& line);
    void narrowToPage(Line& line);

    Printer& printer_;
    TextArea page_;
    PrintFont font_;
    int characterWidth_ = 0;  // what the font was narrowed to; 0 is its own width
    FontMeasure measure_;
    int linePitch_ = 0;
    int top_ = 0;  // of the next line in the text area
    bool pageIsEmpty_ = true;
    bool fittingPage_ = false;
    bool finished_ = false;
    Line line_;
    std::vector<Line> heldLines_;
};

}  // namespace quorvel
