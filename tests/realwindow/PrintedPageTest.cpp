#include "tests/realwindow/PrintedPage.h"

#include <gtest/gtest.h>

namespace quorvel::scenario {

namespace {

/// Describes pages like the print queue of a bench does, in Courier New of 10 points: characters
/// are 25 dots wide, lines 48 dots apart.
class Paper {
  public:
    static constexpr int characterWidth = 25;
    static constexpr int linePitch = 48;
    static constexpr int ascent = 35;

    Paper& page() {
        if (pages_++ > 0) description_ += "</page>\n";
        description_ += "<page id=\"page1\" " + measures + ">\n";
        return *this;
    }
    Paper& text(int column, int row, std::string_view text, int width = characterWidth) {
        int left = (column - 1) * width;
        for (const char character : text) {
            draw(left, left + characterWidth, ascent + (row - 1) * linePitch,
                 character == ' ' ? "&#xa0;" : std::string(1, character));
            left += width;
        }
        return *this;
    }
    /// Places count from the corner that the program's margins leave.
    Paper& draw(int left, int right, int baseline, const std::string& written) {
        constexpr int margin = 75;
        left += margin;
        right += margin;
        baseline += margin;
        const std::string x = points(left);
        const std::string y = points(baseline);
        const std::string above = points(baseline - ascent);
        const std::string corners = x + " " + above + " " + points(right) + " " + above + " " + x +
                                    " " + y + " " + points(right) + " " + y;
        description_ += "<font name=\"" + font + "\" size=\"" + size + "\">\n<char quad=\"" +
                        corners + "\" x=\"" + x + "\" y=\"" + y + "\" color=\"#000000\" c=\"" +
                        written + "\"/>\n</font>\n";
        return *this;
    }

    std::vector<std::string> lines(const std::vector<std::string>& dates = {"11/21/2026"}) const {
        const PrintedPages job = parsePrintedPages(description_ + "</page>\n");
        return linesOf(job.pages.at(0), job.fonts.at(0), dates);
    }
    PrintedPages parsed() const { return parsePrintedPages(description_ + "</page>\n"); }

    std::string font = "LFKFMY+LiberationMono";
    std::string size = "10.08";
    std::string measures = "width=\"612\" height=\"792\"";

  private:
    static std::string points(int dots) { return std::to_string(dots * 72.0 / 300); }

    std::string description_;
    int pages_ = 0;
};

using Lines = std::vector<std::string>;

}  // namespace

TEST(PrintedPage, CharactersStandInTheirColumns) {
    Paper paper;
    paper.page().text(1, 1, "Quiz 1").text(30, 1, "17").text(37, 1, "/").text(39, 1, "20");
    EXPECT_EQ(paper.lines(), (Lines{"Quiz 1                       17     / 20"}));
}

TEST(PrintedPage, EmptyLinesAreKeptButNoneAtTheEnd) {
    Paper paper;
    paper.page().text(1, 3, "third").text(1, 6, "sixth").text(1, 7, "   ");
    EXPECT_EQ(paper.lines(), (Lines{"", "", "third", "", "", "sixth"}));
}

TEST(PrintedPage, LinesThatStandCloserAreLinesAllTheSame) {
    Paper paper;
    paper.page();
    for (int row = 0; row < 5; ++row)
        paper.draw(0, 25, Paper::ascent + row * 37, std::string(1, static_cast<char>('a' + row)));
    EXPECT_EQ(paper.lines(), (Lines{"a", "b", "c", "d", "e"}));
}

TEST(PrintedPage, ANarrowedLineKeepsItsColumns) {
    Paper paper;
    paper.page().text(1, 1, "wide line").text(1, 2, "narrow", 18).text(100, 2, "here", 18);
    const Lines lines = paper.lines();
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0], "wide line");
    EXPECT_EQ(lines[1], "narrow" + std::string(93, ' ') + "here");
}

TEST(PrintedPage, DateAndTimeReadDateAndTimeAndMoveNothing) {
    Paper paper;
    paper.page()
        .text(1, 1, "11/21/2026 at 2:15:07 PM")
        .text(1, 2, "School: A")
        .text(96, 3, "11/21/2026");
    paper.text(112, 3, "Page: 1");
    EXPECT_EQ(paper.lines(),
              (Lines{"DATE at TIME", "School: A",
                     std::string(95, ' ') + "DATE" + std::string(12, ' ') + "Page: 1"}));
}

TEST(PrintedPage, ADateFromBeforeMidnightReadsDate) {
    Paper paper;
    paper.page().text(1, 1, "11/21/2026 at 11:59:59 PM");
    EXPECT_EQ(paper.lines({"11/22/2026", "11/21/2026"}), Lines{"DATE at TIME"});
}

TEST(PrintedPage, AnotherDateStaysAsItWasPrinted) {
    Paper paper;
    paper.page().text(1, 1, "Class: 3/4/2026 at 2:15:07 PM");
    EXPECT_EQ(paper.lines(), (Lines{"Class: 3/4/2026 at 2:15:07 PM"}));
}

TEST(PrintedPage, CharactersWrittenWithAnotherNameAreReadAsPrinted) {
    Paper paper;
    paper.page();
    int left = 0;
    for (const char* written : {"&#xad;", "&lt;", "&amp;", "&gt;", "&quot;", "&apos;", "&#xe9;",
                                "&#x20ac;", "&#x160;", ">"}) {
        paper.draw(left, left + 25, Paper::ascent, written);
        left += Paper::characterWidth;
    }
    EXPECT_EQ(paper.lines(), (Lines{"-<&>\"'\xE9\x80\x8A>"}));
}

TEST(PrintedPage, ProportionalTextIsReadWithoutGaps) {
    Paper paper;
    paper.font = "LiberationSans";
    paper.page()
        .draw(0, 33, Paper::ascent, "W")
        .draw(33, 39, Paper::ascent, "i")
        .draw(39, 60, Paper::ascent, "n");
    EXPECT_EQ(paper.lines(), (Lines{"Win"}));
}

TEST(PrintedPage, FontsGoByTheNamesAndSizesOfTheProgram) {
    EXPECT_EQ(fontOf({"LiberationMono", 9.84}), (PrintFont{"Courier New", 9.75F}));
    EXPECT_EQ(fontOf({"LiberationSans", 12.0}), (PrintFont{"Arial", 12.0F}));
    EXPECT_EQ(fontOf({"LiberationSerif", 10.08}), (PrintFont{"Times New Roman", 10.0F}));
    EXPECT_EQ(fontOf({"DejaVuSans", 8.16}), (PrintFont{"DejaVuSans", 8.25F}));
}

TEST(PrintedPage, EveryPageAndEveryFontCountsOnce) {
    Paper paper;
    paper.page().text(1, 1, "one").page().text(1, 1, "two");
    paper.size = "9.84";
    paper.text(1, 2, "smaller");
    const PrintedPages job = paper.parsed();
    EXPECT_EQ(job.pages.size(), 2U);
    EXPECT_EQ(job.fonts.size(), 2U);
    EXPECT_EQ(job.fonts[0].name, "LiberationMono");
}

TEST(PrintedPage, APageIsUprightOrNot) {
    Paper paper;
    paper.page();
    paper.measures = "width=\"792\" height=\"612\"";
    paper.page();
    const PrintedPages job = paper.parsed();
    EXPECT_FALSE(job.pages[0].landscape);
    EXPECT_TRUE(job.pages[1].landscape);
}

TEST(PrintedPage, ADescriptionOfAnotherKindIsAnError) {
    EXPECT_THROW(parsePrintedPages("<page>\n"), ScenarioError);
    EXPECT_THROW(parsePrintedPages("<page width=\"1\" height=\"2\">\n<char c=\"a\"/>\n</page>\n"),
                 ScenarioError);
    EXPECT_THROW(parsePrintedPages("<char quad=\"0 1 2 1 0 3 2 3\" x=\"0\" y=\"3\" c=\"a\"/>\n"),
                 ScenarioError);
}

}  // namespace quorvel::scenario
