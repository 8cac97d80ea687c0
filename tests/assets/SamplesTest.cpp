#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <vector>

#include "core/GradeSheet.h"
#include "storage/SheetFile.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

GradeSheet sample(const std::string& title) {
    std::ifstream stream(std::filesystem::path(QUORVEL_SAMPLES_FOLDER) / (title + ".qrv"),
                         std::ios::binary);
    EXPECT_TRUE(stream) << title << " is missing";
    const std::string bytes{std::istreambuf_iterator<char>(stream), {}};
    GradeSheet sheet = decodeSheet(std::as_bytes(std::span(bytes)));
    sheet.recomputeFigures(GradingScale{});
    return sheet;
}

int scoresWhere(const GradeSheet& sheet, bool (Score::*test)() const) {
    int count = 0;
    for (int assignment = 1; assignment <= sheet.assignmentCount(); ++assignment) {
        for (int student = 1; student <= sheet.studentCount(); ++student) {
            count += (sheet.score(assignment, student).*test)() ? 1 : 0;
        }
    }
    return count;
}

bool hasAccent(const std::string& text) {
    return std::ranges::any_of(text, [](char c) { return static_cast<unsigned char>(c) > 0x7F; });
}

class Samples : public testing::TestWithParam<const char*> {};

INSTANTIATE_TEST_SUITE_P(Classes, Samples,
                         testing::Values("Algebra I - Period 3", "World History - Period 5"),
                         [](const auto& test) {
                             std::string name = test.param;
                             std::erase_if(name, [](char c) { return c == ' ' || c == '-'; });
                             return name;
                         });

TEST_P(Samples, CarryTheirFilesNameAsTitle) {
    EXPECT_EQ(sample(GetParam()).sheetTitle, GetParam());
}

TEST_P(Samples, StandInTheOrderThatTheRosterIsSortedIn) {
    const GradeSheet sheet = sample(GetParam());
    GradeSheet sorted = sheet;
    sorted.sortRoster(CodePage::windows1252());
    for (int student = 1; student <= sheet.studentCount(); ++student) {
        EXPECT_EQ(sorted.studentName(student), sheet.studentName(student));
    }
}

TEST_P(Samples, KeepWithinTheLengthsThatThePromptsAsk) {
    const GradeSheet sheet = sample(GetParam());
    for (int student = 1; student <= sheet.studentCount(); ++student) {
        EXPECT_LE(sheet.studentAlias(student).size(), 15U) << sheet.studentAlias(student);
        EXPECT_FALSE(sheet.studentAlias(student).empty());
    }
    for (int assignment = 1; assignment <= sheet.assignmentCount(); ++assignment) {
        EXPECT_LE(sheet.assignmentName(assignment).size(), 20U) << sheet.assignmentName(assignment);
    }
}

TEST_P(Samples, CanBePrintedInEveryReport) {
    const GradeSheet sheet = sample(GetParam());
    for (int student = 1; student <= sheet.studentCount(); ++student) {
        EXPECT_GT(sheet.figures(student).pointsPossible, 0) << sheet.studentName(student);
    }
}

TEST_P(Samples, HaveExcusedAndEmptyScoresAndAccents) {
    const GradeSheet sheet = sample(GetParam());
    EXPECT_GE(scoresWhere(sheet, &Score::isExcused), 5);
    EXPECT_GE(scoresWhere(sheet, &Score::isEmpty), 5);
    int accents = 0;
    for (int student = 1; student <= sheet.studentCount(); ++student) {
        accents += hasAccent(sheet.studentName(student)) ? 1 : 0;
    }
    EXPECT_GE(accents, 5);
}

TEST(SampleClass, IsLargerThanTheGrid) {
    const GradeSheet sheet = sample("Algebra I - Period 3");
    EXPECT_GE(sheet.studentCount(), 28);
    EXPECT_GE(sheet.assignmentCount(), 18);
}

TEST(SampleClass, HasEveryLetterAndATieInRank) {
    const GradeSheet sheet = sample("Algebra I - Period 3");
    std::set<LetterGrade> letters;
    std::multiset<int> ranks;
    for (int student = 1; student <= sheet.studentCount(); ++student) {
        letters.insert(sheet.figures(student).letterGrade);
        ranks.insert(sheet.figures(student).rank);
    }
    EXPECT_EQ(letters.size(), 6U);
    EXPECT_TRUE(std::ranges::any_of(ranks, [&](int rank) { return ranks.count(rank) == 2; }));
}

}  // namespace
}  // namespace quorvel
