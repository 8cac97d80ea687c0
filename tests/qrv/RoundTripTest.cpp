#include <random>

#include "tests/qrv/SheetTexts.h"

#include <gtest/gtest.h>

namespace quorvel {

namespace {

/// Sheets such as the window can make; the same seed gives the same one.
class SheetMaker {
  public:
    explicit SheetMaker(unsigned seed) : random_(seed) {}

    GradeSheet sheet() {
        GradeSheet sheet;
        const int students = below(6);
        const int assignments = below(5);
        for (int student = 0; student < students; ++student) sheet.addStudent(text(), text());
        for (int assignment = 0; assignment < assignments; ++assignment) {
            sheet.addAssignment(text(), static_cast<std::int16_t>(below(1000)));
        }
        for (int assignment = 1; assignment <= assignments; ++assignment) {
            for (int student = 1; student <= students; ++student) {
                sheet.setScore(assignment, student, score());
            }
        }
        if (below(5) == 0) removeAll(sheet);
        sheet.sheetTitle = text();
        return sheet;
    }

  private:
    int below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }

    std::string text() {
        static constexpr std::string_view odd = "'=+-@,;\t\"'|. ";
        static constexpr int lengths[] = {0, 1, 2, 3, 8, 15, 20, 126};
        const int length = lengths[below(8)];
        std::string text;
        while (static_cast<int>(text.size()) < length) {
            const char next = below(3) == 0 ? odd[static_cast<std::size_t>(below(14))]
                                            : static_cast<char>(below(256));
            const bool isTyped = static_cast<unsigned char>(next) >= ' ' && next != '\x7F';
            if (isTyped) text += next;
        }
        return text;
    }

    Score score() {
        switch (below(6)) {
            case 0:
                return {};
            case 1:
                return Score::excused();
            case 2:
                return Score::zero();
            case 3:
                return typed(std::to_string(below(1000)) + '.' + std::to_string(below(50)));
            default:
                return typed(std::to_string(below(32768)));
        }
    }

    static Score typed(const std::string& number) {
        return scoreFromEntry(number, CodePage::windows1252());
    }

    static void removeAll(GradeSheet& sheet) {
        while (sheet.studentCount() > 0) sheet.removeStudent(1);
        while (sheet.assignmentCount() > 0) sheet.removeAssignment(1);
    }

    std::mt19937 random_;
};

constexpr unsigned sheets = 400;

TEST(RoundTripTest, JsonGivesEverySheetBackAsItWas) {
    for (unsigned seed = 0; seed < sheets; ++seed) {
        const GradeSheet sheet = SheetMaker(seed).sheet();
        const ImportedSheet again = importedFrom(jsonOf(sheet));
        ASSERT_EQ(textOf(again.mistakes), "") << seed;
        ASSERT_EQ(shownBy(again.sheet), shownBy(sheet)) << seed;
        ASSERT_EQ(again.title, sheet.sheetTitle) << seed;
        ASSERT_EQ(again.sheet.studentCountIfSet(), sheet.studentCountIfSet()) << seed;
        ASSERT_EQ(again.sheet.assignmentCountIfSet(), sheet.assignmentCountIfSet()) << seed;
        for (int assignment = 1; assignment <= sheet.assignmentCount(); ++assignment) {
            for (int student = 1; student <= sheet.studentCount(); ++student) {
                ASSERT_EQ(again.sheet.score(assignment, student), sheet.score(assignment, student))
                    << seed;
            }
        }
    }
}

TEST(RoundTripTest, CsvGivesEveryTextAndScoreBack) {
    for (unsigned seed = 0; seed < sheets; ++seed) {
        const GradeSheet sheet = SheetMaker(seed).sheet();
        for (const bool forSpreadsheet : {false, true}) {
            const ImportedSheet again = importedFrom(csvOf(sheet, forSpreadsheet));
            ASSERT_EQ(textOf(again.mistakes), "") << seed;
            ASSERT_EQ(shownBy(again.sheet), shownBy(sheet)) << seed;
            ASSERT_EQ(csvOf(again.sheet, forSpreadsheet), csvOf(sheet, forSpreadsheet)) << seed;
        }
    }
}

TEST(RoundTripTest, NoTextForASpreadsheetStartsAFormula) {
    for (unsigned seed = 0; seed < sheets; ++seed) {
        const std::string csv = csvOf(SheetMaker(seed).sheet(), true);
        bool quoted = false;
        bool atStart = true;
        for (const char character : csv) {
            if (atStart && !quoted) {
                EXPECT_EQ(std::string_view("=+-@").find(character), std::string_view::npos) << csv;
            }
            if (character == '"') quoted = !quoted;
            atStart = character == ',' || character == '\n' || (atStart && character == '"');
        }
    }
}

}  // namespace

}  // namespace quorvel
