#include <algorithm>
#include <regex>
#include <set>

#include "tests/qrv/ProgramFixture.h"

namespace quorvel {

namespace {

class PageTest : public ProgramTest {
  protected:
    static bool has(const std::string& page, const std::string& text) {
        return page.find(text) != std::string::npos;
    }

    /// The page without what is the same on every one.
    static std::string body(const std::string& page) { return page.substr(page.find("<body>")); }

    void makeAnother() const {
        write("art.csv", "Name,Alias,Sketch\nValue,,10\n\"Poe, Edgar\",Ed,7\n");
        EXPECT_EQ(qrv("import art.csv -o art.qrv --title Art").exitCode, 0);
    }
};

TEST_F(PageTest, ShowsTheFiguresOfTheClass) {
    makeClass();
    const ProgramRun run =
        qrv("page class.qrv --school 'North High' --teacher 'M. Rivera' --date 3/4/2026");
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.problem, "");
    EXPECT_TRUE(run.output.starts_with("<!DOCTYPE html>\n"));
    EXPECT_TRUE(run.output.ends_with("</html>\n"));
    for (const char* text :
         {"<title>Math - 1</title>", "<h1 id=\"class-1-title\">Math - 1</h1>", "North High",
          "M. Rivera", "3/4/2026", "<b>90.5<small>%</small></b> <i>B</i>",
          "3 students, 4 assignments, 1 excused score", "2 empty cells</a>",
          // what is missing
          ">1 empty cell counts as no points of the full value. Left out are assignments worth 0, ",
          " worth 0, where an empty cell costs nothing: Bonus (1).<",
          ">Roe, Rick</th><td class=\"cost\">1</td>",
          // a student's and an assignment's row
          ">Doe, Jane</th>", "<td class=\"earned\">115</td><td class=\"possible\">120</td>",
          "<td class=\"percent\">95.8</td><td class=\"grade\">A</td><td class=\"rank\">2</td>",
          ">Essay, long</th><td class=\"value\">50</td><td class=\"percent\">90.2</td>"}) {
        EXPECT_TRUE(has(run.output, text)) << text;
    }
}

TEST_F(PageTest, TiesAreDotsSideBySideJoined) {
    write("ties.csv", "Name,Alias,Quiz\nValue,,20\nDoe,,15\nRoe,,16\nPoe,,15\nNoe,,18\n");
    EXPECT_EQ(qrv("import ties.csv -o ties.qrv").exitCode, 0);
    const std::string page = qrv("page ties.qrv").output;
    for (const char* text :
         {"<path d=\"M490 -10h20\"/><circle cx=\"490\" cy=\"-10\" r=\"8.5\"><title>Doe: 75, "
          "D</title>",
          "<circle cx=\"510\" cy=\"-10\" r=\"8.5\"><title>Poe: 75, D</title>",
          "</circle><circle cx=\"600\" cy=\"-10\" r=\"8.5\"><title>Roe: 80, C</title>"}) {
        EXPECT_TRUE(has(page, text)) << text;
    }
}

TEST_F(PageTest, WhatIsEmptyWhereNothingIsWorthAnythingIsNotMissing) {
    write("free.csv", "Name,Alias,Bonus,Extra\nValue,,0,0\nDoe,,,1\nRoe,,,E\n");
    EXPECT_EQ(qrv("import free.csv -o free.qrv").exitCode, 0);
    const std::string page = qrv("page free.qrv").output;
    EXPECT_TRUE(has(page,
                    "Nothing that costs points. Left out are assignments worth 0, where an "
                    "empty cell costs nothing: Bonus (2)."));
    EXPECT_FALSE(has(page, "class=\"gaps\""));
}

TEST_F(PageTest, NeedsNothingButItself) {
    makeClass();
    const std::string page = qrv("page class.qrv").output;
    EXPECT_TRUE(has(page, "content=\"default-src 'none';"));
    for (const char* text : {"<script", "http:", "https:", "url(", "@import", "<img", "<iframe",
                             "<object", "<form", "javascript:", " onload", " style="}) {
        EXPECT_FALSE(has(page, text)) << text;
    }
    const std::regex link("(href|src)=\"([^\"]*)\"");
    for (std::sregex_iterator one(page.begin(), page.end(), link), end; one != end; ++one) {
        const std::string target = (*one)[2];
        EXPECT_TRUE(target.starts_with("#") || target == "data:,") << target;
        if (!target.starts_with("#")) continue;
        EXPECT_TRUE(has(page, "id=\"" + target.substr(1) + "\"")) << target;
    }
}

TEST_F(PageTest, NoIdStandsTwiceAndEveryOneThatIsNamedIsThere) {
    makeClass();
    makeAnother();
    const std::string page = qrv("page class.qrv art.qrv").output;
    const std::regex declared(" id=\"([^\"]+)\"");
    std::set<std::string> ids;
    for (std::sregex_iterator one(page.begin(), page.end(), declared), end; one != end; ++one) {
        EXPECT_TRUE(ids.insert((*one)[1]).second) << (*one)[1];
    }
    EXPECT_GT(ids.size(), 20U);
    const std::regex named("aria-labelledby=\"([^\" ]+)(?: ([^\"]+))?\"");
    for (std::sregex_iterator one(page.begin(), page.end(), named), end; one != end; ++one) {
        EXPECT_TRUE(ids.contains((*one)[1])) << (*one)[1];
        EXPECT_TRUE(!(*one)[2].matched || ids.contains((*one)[2])) << (*one)[2];
    }
}

TEST_F(PageTest, EveryPictureIsNamedOrHidden) {
    makeClass();
    const std::string page =
        qrv("page class.qrv").output + qrv("page class.qrv --student 1").output;
    const std::regex picture("<svg[^>]*>");
    int count = 0;
    for (std::sregex_iterator one(page.begin(), page.end(), picture), end; one != end; ++one) {
        const std::string tag = one->str();
        const bool isInner = has(tag, "<svg y=");
        EXPECT_TRUE(isInner || has(tag, "aria-hidden=\"true\"") ||
                    (has(tag, "role=\"img\"") && has(tag, "aria-labelledby=")))
            << tag;
        ++count;
    }
    EXPECT_GT(count, 10);
}

TEST_F(PageTest, ANameIsANameWhateverItHolds) {
    write("odd.csv",
          "Name,Alias,\"<b>Quiz</b>\"\nValue,,20\n"
          "<script>alert(1)</script>,\"\"\"><img src=x>\",17\n'&amp;',,E\n");
    EXPECT_EQ(qrv("import odd.csv -o odd.qrv --title '</title><script>1</script>'").exitCode, 0);
    for (const char* words : {"page odd.qrv", "page odd.qrv --alias", "page odd.qrv --student 1",
                              "page odd.qrv --student 1 --alias", "page odd.qrv odd.qrv"}) {
        const std::string page =
            qrv(std::string(words) + " --school '<script>' --teacher '\"<b>' --date \"<i>'\"")
                .output;
        EXPECT_TRUE(has(page, "&lt;script&gt;")) << words;
        for (const char* text : {"<script", "<img", "<b>Quiz", "<i>'", "\"<b>"}) {
            EXPECT_FALSE(has(page, text)) << words << text;
        }
    }
    EXPECT_TRUE(has(qrv("page odd.qrv").output, "&#39;&amp;amp;&#39;"));
}

TEST_F(PageTest, WithAliasesNoFullNameIsAnywhere) {
    write("class.csv",
          "Name,Alias,Quiz,Test\nValue,,20,10\nQuillfeather,One,17,\nBrandywine,,E,3\n"
          "Oakenshield,Three,,\n");
    EXPECT_EQ(qrv("import class.csv -o class.qrv --title Math").exitCode, 0);
    const auto names = {"Quillfeather", "Brandywine", "Oakenshield"};
    for (const char* words :
         {"page class.qrv --alias", "page class.qrv class.qrv --alias",
          "page class.qrv --alias --student 1", "page class.qrv --alias --student 2"}) {
        const std::string page = qrv(words).output;
        for (const char* name : names) EXPECT_FALSE(has(page, name)) << words;
        EXPECT_TRUE(has(page, "One") || has(page, "Student 2")) << words;
    }
    const std::string page = qrv("page class.qrv").output;
    for (const char* name : names) EXPECT_TRUE(has(page, name));
    EXPECT_FALSE(has(page, ">One<"));
}

TEST_F(PageTest, OneStudentsPageHoldsNothingOfTheOthersButTheAverage) {
    makeClass();
    const std::string page = qrv("page class.qrv --student 2 --date today").output;
    for (const char* text :
         {"<title>Roe, Rick, Math - 1</title>", ">Roe, Rick</h1>",
          "<b>75.8<small>%</small></b> <i>D</i><span>129 of 170 points", "Class average 90.5",
          "<td class=\"gap\">empty</td>", ">40.25</td>", ">80.5</td>"}) {
        EXPECT_TRUE(has(page, text)) << text;
    }
    for (const char* text : {"Doe", "Jane", "str\xC3\xB6m", "95.8", ">115<", "ank ", ">17<"}) {
        EXPECT_FALSE(has(body(page), text)) << text;
    }
    // Whatever the others have, the page is the same as long as the average is.
    write("other.csv",
          "Name,Alias,Quiz,Test,\"Essay, long\",Bonus\nValue,,20,100,50,0\n"
          "Noe,No,20,95,E,0\n\"Roe, Rick\",Rick,,89,40.25,0\nPoe,Po,E,100,50,\n");
    EXPECT_EQ(qrv("import other.csv -o other.qrv --title 'Math - 1'").exitCode, 0);
    const std::string figures = "--format tsv | tail -n 1";
    ASSERT_EQ(qrv("figures other.qrv " + figures).output,
              qrv("figures class.qrv " + figures).output);
    EXPECT_EQ(qrv("page other.qrv --student 2 --date today").output, page);
}

TEST_F(PageTest, AStudentThatIsNotThereIsToldOf) {
    makeClass();
    for (const char* number : {"0", "4", "-1"}) {
        const ProgramRun run = qrv(std::string("page class.qrv -o page.html --student ") + number);
        EXPECT_EQ(run.exitCode, 1) << number;
        EXPECT_TRUE(
            isOneLine(run.problem, std::string("qrv: class.qrv: there is no student ") + number));
        EXPECT_FALSE(exists("page.html"));
    }
}

TEST_F(PageTest, SeveralSheetsAreOnePageWithAListOfContents) {
    makeClass();
    makeAnother();
    const std::string page = qrv("page class.qrv art.qrv --school 'North High'").output;
    for (const char* text :
         {"<title>North High</title>", "<h1>North High</h1>", "2 classes, 4 students",
          "<a href=\"#class-1\">Math - 1</a>", "<a href=\"#class-2\">Art</a>",
          "<article id=\"class-2\"", "<h2 id=\"class-2-title\">Art</h2>",
          "<td>3</td><td class=\"percent\">90.5</td><td class=\"grade\">B</td><td>2</td>"}) {
        EXPECT_TRUE(has(page, text)) << text;
    }
    EXPECT_TRUE(has(qrv("page class.qrv art.qrv").output, "<h1>Classes</h1>"));
}

TEST_F(PageTest, ADamagedSheetIsNamedAndTheOthersAreThere) {
    makeClass();
    makeAnother();
    EXPECT_EQ(shell("head -c 2000 class.qrv >cut.qrv").exitCode, 0);
    const ProgramRun run = qrv("page cut.qrv art.qrv missing.qrv");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(std::ranges::count(run.problem, '\n'), 2) << run.problem;
    EXPECT_TRUE(has(run.output, "<a href=\"#class-1\">Art</a>"));
    EXPECT_FALSE(has(run.output, "Math - 1"));
    const ProgramRun none = qrv("page cut.qrv -o page.html");
    EXPECT_EQ(none.exitCode, 1);
    EXPECT_TRUE(isOneLine(none.problem, "qrv: cut.qrv: record "));
    EXPECT_FALSE(exists("page.html"));
    const ProgramRun shown = qrv("page cut.qrv --damaged");
    EXPECT_EQ(shown.exitCode, 1);
    EXPECT_TRUE(has(shown.output, ">Math - 1</h1>"));
}

TEST_F(PageTest, CellsThatAFileOnlyClaimsCostLittle) {
    EXPECT_EQ(shell("count() { printf '\\002\\000\\377\\177'; head -c 124 /dev/zero; }; "
                    "{ count; count; } >huge.qrv")
                  .exitCode,
              0);
    const ProgramRun run = qrv("page huge.qrv --damaged -o page.html");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(isOneLine(run.problem, "qrv: huge.qrv: record "));
    EXPECT_TRUE(has(read("page.html"), "32767 students, 32767 assignments"));
}

TEST_F(PageTest, AClassMayBeEmptyAndASheetHaveNoTitle) {
    write("empty.csv", "Name,Alias,Quiz\nValue,,20\n");
    EXPECT_EQ(qrv("import empty.csv -o empty.qrv").exitCode, 0);
    const ProgramRun run = qrv("page empty.qrv");
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TRUE(has(run.output, ">empty</h1>"));
    EXPECT_TRUE(has(run.output, "There are no students in this class yet."));
    EXPECT_TRUE(has(shell("qrv page - <empty.qrv").output, ">Class</h1>"));
    write("bare.csv", "Name,Alias\nValue,\nDoe,\n");
    EXPECT_EQ(qrv("import bare.csv -o bare.qrv").exitCode, 0);
    EXPECT_EQ(qrv("page bare.qrv").exitCode, 0);
    EXPECT_EQ(qrv("page bare.qrv --student 1").exitCode, 0);
}

TEST_F(PageTest, GradesByTheScaleThatIsInForce) {
    makeClass();
    EXPECT_TRUE(has(qrv("page class.qrv --scale 90,80,70,60,50 --round-up").output,
                    "A from 89.5, B from 79.5, C from 69.5, D from 59.5, E from 49.5, F below"));
    EXPECT_EQ(shell("mkdir Grades; cp class.qrv Grades").exitCode, 0);
    writeScale("GradingScale.qrv", "50,40,30,20,10");
    EXPECT_TRUE(has(qrv("page Grades/class.qrv").output, "A from 50, B from 40"));
}

TEST_F(PageTest, TheOutputIsNeverTheInput) {
    makeClass();
    const std::string before = read("class.qrv");
    EXPECT_EQ(qrv("page class.qrv -o ./class.qrv").exitCode, 2);
    EXPECT_EQ(read("class.qrv"), before);
    EXPECT_EQ(qrv("page class.qrv -o page.html").output, "");
    EXPECT_EQ(qrv("page class.qrv -o -").output, read("page.html"));
}

TEST_F(PageTest, StaysSmall) {
    std::string csv = "Name,Alias";
    for (int a = 1; a <= 40; ++a) csv += ",Assignment number " + std::to_string(a);
    csv += "\nValue,";
    for (int a = 1; a <= 40; ++a) csv += ",100";
    csv += '\n';
    for (int student = 1; student <= 35; ++student) {
        csv += "\"Lastname-Longer, Firstname " + std::to_string(student) + "\",Alias";
        for (int a = 1; a <= 40; ++a) {
            const int score = student * a * 37 % 101;
            csv += score % 9 == 0 ? "," : "," + std::to_string(score);
        }
        csv += '\n';
    }
    write("usual.csv", csv);
    EXPECT_EQ(qrv("import usual.csv -o usual.qrv").exitCode, 0);
    EXPECT_LT(qrv("page usual.qrv").output.size(), 300'000U);
}

}  // namespace

}  // namespace quorvel
