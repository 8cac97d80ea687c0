#include <algorithm>
#include <fstream>
#include <iterator>
#include <sstream>

#include "platform/posix/PosixFiles.h"
#include "reports/Report.h"
#include "reports/TextPrinter.h"
#include "storage/SheetFile.h"

#include <gtest/gtest.h>

namespace quorvel {

namespace {

const std::filesystem::path goldenFolder = QUORVEL_GOLDEN_FOLDER;

std::string contentOf(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    EXPECT_TRUE(stream) << file;
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// A class whose reports are kept as texts, printed with these names on DATE at TIME.
struct GoldenClass {
    const char* name;
    const char* schoolName;
    const char* teacherName;
    int student;  // of the individual report
};

constexpr GoldenClass goldenClasses[] = {
    {"typical", "Lincoln Middle School", "Ms. Rivera", 1},
    {"long-and-empty-names", "Saint Bartholomew's Regional Preparatory Academy",
     "Professor Theodora Vandersloot", 5},
    {"large", "", "", 43},
};

struct GoldenReport {
    ReportKind kind;
    const char* name;
    bool useAliases;
};

constexpr GoldenReport goldenReports[] = {
    {ReportKind::Full, "full", false},
    {ReportKind::Class, "class", false},
    {ReportKind::Class, "class-aliases", true},
    {ReportKind::IndividualStudent, "individual-student", false},
    {ReportKind::Assignment, "assignment", false},
    {ReportKind::Teacher, "teacher", false},
    {ReportKind::Teacher, "teacher-aliases", true},
    {ReportKind::StudentGrade, "student-grade", false},
};

class GoldenTest : public testing::TestWithParam<std::tuple<GoldenClass, GoldenReport>> {};

TEST_P(GoldenTest, PrintsEveryCharacterOfIt) {
    const auto& [golden, report] = GetParam();
    PosixFiles files;
    auto [sheet, problem] = readSheet(files, goldenFolder / (std::string(golden.name) + ".qrv"));
    ASSERT_EQ(problem, FileProblem::None);
    sheet.recomputeFigures(GradingScale());

    const ReportData data{.sheet = sheet,
                          .schoolName = golden.schoolName,
                          .teacherName = golden.teacherName,
                          .date = "DATE",
                          .time = "TIME",
                          .font = {"Courier New", 10},
                          .useAliases = report.useAliases,
                          .student = golden.student};
    TextPrinter printer;
    printReport(report.kind, data, printer);
    const std::string file = std::string(golden.name) + "-" + report.name + ".txt";
    EXPECT_EQ(CodePage::windows1252().toUtf8(printer.text()), contentOf(goldenFolder / file));
}

std::string plainName(const testing::TestParamInfo<GoldenTest::ParamType>& info) {
    std::string name =
        std::string(std::get<0>(info.param).name) + "_" + std::get<1>(info.param).name;
    std::ranges::replace(name, '-', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Golden, GoldenTest,
                         testing::Combine(testing::ValuesIn(goldenClasses),
                                          testing::ValuesIn(goldenReports)),
                         plainName);

}  // namespace

}  // namespace quorvel
