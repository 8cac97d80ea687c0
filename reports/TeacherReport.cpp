#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "core/Grades.h"
#include "core/Numbers.h"
#include "reports/Headings.h"
#include "reports/Layouts.h"

namespace quorvel {

namespace {

constexpr const char* fontName = "Courier New";
constexpr float fontSize = 9.75F;

constexpr int studentsOnSheet = 40;
constexpr int assignmentsOnSheet = 20;

constexpr std::size_t longestTeacher = 21;
constexpr std::size_t longestTitle = 23;
constexpr std::size_t longestSchool = 22;
constexpr int classColumn = 32;
constexpr int schoolColumn = 64;
constexpr int dateColumn = 96;
constexpr int pageColumn = 112;

constexpr std::size_t nameWidth = 19;
constexpr std::size_t scoreWidth = 4;
constexpr std::size_t earnedWidth = 5;
constexpr std::size_t possibleWidth = 4;
constexpr std::size_t percentWidth = 4;
constexpr std::size_t letterWidth = 2;

constexpr int keyColumns[] = {1, 41, 82};

/// An assignment's averages over the whole class as they are printed; empty where there is none.
struct AverageTexts {
    std::string score;
    std::string percent;
};

/// The numbers of the first and last student or assignment on a sheet.
struct Range {
    int first;
    int last;
};

/// The `part`-th of the parts of `size` (both counted from 1) that `count` things fall into.
Range partOf(int count, int size, int part) {
    return {(part - 1) * size + 1, std::min(part * size, count)};
}

void appendCell(std::string& row, std::string_view text, std::size_t width) {
    row.append(width - std::min(width, text.size()), ' ').append(text).push_back('|');
}

std::string nameCell(std::string_view name) {
    const std::string_view shown = name.substr(0, nameWidth);
    return std::string("|").append(shown).append(nameWidth - shown.size(), ' ').append("|");
}

/// An average with its tenth, or without where that is too wide for the column.
std::string averageText(const Decimal& tenths) {
    std::string text = tenths.tenthsText();
    return text.size() > scoreWidth ? tenths.scaledDown(1, 10).text() : text;
}

std::vector<AverageTexts> averageTexts(const GradeSheet& sheet) {
    std::vector<AverageTexts> texts(static_cast<std::size_t>(sheet.assignmentCount()));
    for (int assignment = 1; assignment <= sheet.assignmentCount(); ++assignment) {
        const auto average = assignmentAverage(sheet, assignment);
        if (!average) continue;
        AverageTexts& text = texts[static_cast<std::size_t>(assignment) - 1];
        text.score = averageText(average->scoreTenths());
        if (const auto percent = average->percentTenths()) text.percent = averageText(*percent);
    }
    return texts;
}

/// One sheet of the chart: a block of students, a group of assignments.
class ChartSheet {
  public:
    ChartSheet(PrintJob& job, const ReportData& data, const std::vector<AverageTexts>& averages,
               Range students, Range assignments)
        : job_(job),
          data_(data),
          averages_(averages),
          students_(students),
          assignments_(assignments) {}

    void print(int pageNumber) {
        const std::string number = std::to_string(pageNumber);
        job_.beginFittedPage({fontName, fontSize}, columns(number));
        printHeadingLine(number);
        printChartHeading();
        for (int student = students_.first; student <= students_.last; ++student) {
            printStudent(student);
        }
        printAverages("Average Scores", &AverageTexts::score);
        printAverages("Average Percent", &AverageTexts::percent);
        printKey();
        job_.endFittedPage();
    }

  private:
    const AverageTexts& average(int assignment) const {
        return averages_[static_cast<std::size_t>(assignment) - 1];
    }

    /// The width in characters of the chart or of the line over it, whichever is wider.
    int columns(std::string_view pageNumber) const {
        const std::size_t assignmentCount =
            static_cast<std::size_t>(assignments_.last - assignments_.first + 1);
        const std::size_t closing = earnedWidth + possibleWidth + percentWidth + letterWidth + 4;
        const std::size_t chart = nameWidth + 2 + assignmentCount * (scoreWidth + 1) + closing;
        const std::size_t heading = pageColumn - 1 + 6 + pageNumber.size();
        return static_cast<int>(std::max(chart, heading));
    }

    void printHeadingLine(std::string_view pageNumber) {
        const auto cut = [](std::string_view text, std::size_t length) {
            return text.substr(0, length);
        };
        job_.text("Teacher: ").text(cut(data_.teacherName, longestTeacher));
        job_.at(classColumn, "Class: ").text(cut(data_.sheet.sheetTitle, longestTitle));
        job_.at(schoolColumn, "School: ").text(cut(data_.schoolName, longestSchool));
        job_.at(dateColumn, data_.date);
        job_.at(pageColumn, "Page: ").line(pageNumber);
    }

    /// One row of the chart: what `text` gives for each assignment between its ends.
    template <typename TextOfAssignment>
    void printRow(std::string row, const TextOfAssignment& text, std::string_view end) {
        for (int assignment = assignments_.first; assignment <= assignments_.last; ++assignment) {
            appendCell(row, text(assignment), scoreWidth);
        }
        job_.line(row.append(end));
    }

    void printChartHeading() {
        printRow(
            "                    |", [](int) { return std::string(); }, "");
        printRow(
            "|Student Name       |",
            [](int a) { return std::string("#").append(std::to_string(a)); },
            "Total| PP |  % |LG|");
    }

    void printStudent(int student) {
        const GradeSheet& sheet = data_.sheet;
        const StudentFigures& figures = sheet.figures(student);
        std::string end;
        appendCell(end, std::to_string(figures.pointsEarned), earnedWidth);
        appendCell(end, std::to_string(figures.pointsPossible), possibleWidth);
        appendCell(end, tenthsText(figures.percentageTenths), percentWidth);
        appendCell(end, letterText(figures.letterGrade), letterWidth);
        const std::string& name =
            data_.useAliases ? sheet.studentAlias(student) : sheet.studentName(student);
        printRow(
            nameCell(name), [&](int a) { return textOf(sheet.scores(a).value(student)); }, end);
    }

    void printAverages(std::string_view label, std::string AverageTexts::*text) {
        printRow(
            nameCell(label), [&](int a) { return average(a).*text; }, " --- | -- | -- |--|");
    }

    void printKey() {
        constexpr int perLine = static_cast<int>(std::size(keyColumns));
        for (int assignment = assignments_.first; assignment <= assignments_.last; ++assignment) {
            const int place = (assignment - assignments_.first) % perLine;
            job_.at(keyColumns[place], "#").text(std::to_string(assignment)).text("-");
            job_.text(data_.sheet.assignmentName(assignment)).text("-PP:");
            job_.text(std::to_string(data_.sheet.assignmentValue(assignment)));
            job_.text("-AS:").text(average(assignment).score);
            if (place == perLine - 1 || assignment == assignments_.last) job_.endLine();
        }
    }

    PrintJob& job_;
    const ReportData& data_;
    const std::vector<AverageTexts>& averages_;
    Range students_;
    Range assignments_;
};

}  // namespace

void layOutTeacherReport(PrintJob& job, const ReportData& data) {
    const int studentCount = data.sheet.studentCount();
    const int assignmentCount = data.sheet.assignmentCount();
    const std::vector<AverageTexts> averages = averageTexts(data.sheet);
    const int blocks = (studentCount - 1) / studentsOnSheet + 1;
    // A sheet without assignments still has its names and closing columns.
    const int groups = std::max(1, (assignmentCount + assignmentsOnSheet - 1) / assignmentsOnSheet);
    // The last students come out of the printer first, on purpose.
    for (int block = blocks; block >= 1; --block) {
        const Range students = partOf(studentCount, studentsOnSheet, block);
        for (int group = 1; group <= groups; ++group) {
            const Range assignments = partOf(assignmentCount, assignmentsOnSheet, group);
            ChartSheet(job, data, averages, students, assignments)
                .print((block - 1) * groups + group);
        }
    }
}

}  // namespace quorvel
