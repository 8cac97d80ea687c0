#include <algorithm>
#include <array>

#include "core/GradeSheet.h"
#include "tests/figures/ByHand.h"
#include "tests/figures/Trials.h"

namespace quorvel::figures {

namespace {

/// With 1000 points possible, a student's points are the percentage in tenths.
constexpr std::int16_t thousandPoints = 1000;

GradeSheet classOf(int students) {
    GradeSheet sheet;
    sheet.addAssignment("Exam", thousandPoints);
    for (int student = 1; student <= students; ++student) sheet.addStudent("Student", "S");
    return sheet;
}

void setPercentage(GradeSheet& sheet, int student, std::int64_t tenths) {
    sheet.setScore(1, student, Score(TaggedValue(static_cast<std::int16_t>(tenths))));
}

/// Gives all students percentages as equal as they can be, of that sum.
void setSum(GradeSheet& sheet, std::int64_t sum) {
    const std::int64_t count = sheet.studentCount();
    std::int64_t each = sum / count;
    if (each * count > sum) --each;
    const std::int64_t withOneMore = sum - each * count;
    for (int student = 1; student <= count; ++student)
        setPercentage(sheet, student, each + (student <= withOneMore ? 1 : 0));
}

/// 1 and one for each that is higher.
int rankByHand(const std::vector<std::int64_t>& percentages, std::int64_t percentage) {
    return 1 + static_cast<int>(std::ranges::count_if(
                   percentages, [percentage](std::int64_t other) { return other > percentage; }));
}

constexpr std::array<std::int64_t, 8> eightPercentages{-50, 0, 1, 333, 500, 999, 1000, 1055};
constexpr int mostRanked = 8;

/// The class that has this number among those of its size: its digits to the base of eight.
std::vector<std::int64_t> numberedClass(std::uint64_t number, int size) {
    std::vector<std::int64_t> percentages;
    for (int student = 0; student < size; ++student, number /= eightPercentages.size())
        percentages.push_back(eightPercentages.at(number % eightPercentages.size()));
    return percentages;
}

bool haveRightRanks(GradeSheet& sheet, const std::vector<std::int64_t>& percentages) {
    for (std::size_t i = 0; i < percentages.size(); ++i)
        setPercentage(sheet, static_cast<int>(i) + 1, percentages[i]);
    sheet.recomputeFigures(GradingScale());
    for (std::size_t i = 0; i < percentages.size(); ++i)
        if (sheet.figures(static_cast<int>(i) + 1).rank != rankByHand(percentages, percentages[i]))
            return false;
    return true;
}

std::string described(const std::vector<std::int64_t>& percentages) {
    std::string words = "ranks of";
    for (const std::int64_t percentage : percentages) words += ' ' + text(percentage);
    return words;
}

}  // namespace

Outcome tryAverages(const Selection& selection) {
    constexpr int mostStudents = 200;
    constexpr std::int64_t lowest = -100;
    constexpr std::int64_t highest = 1100;
    Outcome outcome;
    std::uint64_t number = 0;
    for (int students = 1; students <= mostStudents; ++students) {
        GradeSheet sheet = classOf(students);
        for (std::int64_t below = lowest; below <= highest; ++below)
            for (std::int64_t beside = -1; beside <= 1; ++beside) {
                if (number++ % selection.stride != selection.first % selection.stride) continue;
                // The half above this average, for an odd number of students as near as it gets.
                const std::int64_t sum = below * students + students / 2 + beside;
                setSum(sheet, sum);
                sheet.recomputeFigures(GradingScale());
                const std::int64_t found = sheet.classAverage().value().tenths;
                const bool isRight = isAverage(found, sum, students);
                if (!isRight && outcome.wantsWords())
                    outcome.tell(std::to_string(students) + " students of " + std::to_string(sum) +
                                 " tenths in all do not average " + text(found));
                outcome.add(isRight);
            }
    }
    return outcome;
}

Outcome tryRanks(const Selection& selection) {
    Outcome outcome;
    std::uint64_t classes = 1;
    for (int size = 1; size <= mostRanked; ++size) {
        classes *= eightPercentages.size();
        GradeSheet sheet = classOf(size);
        for (std::uint64_t number = selection.first; number < classes; number += selection.stride) {
            const std::vector<std::int64_t> percentages = numberedClass(number, size);
            const bool isRight = haveRightRanks(sheet, percentages);
            if (!isRight && outcome.wantsWords()) outcome.tell(described(percentages));
            outcome.add(isRight);
        }
    }
    return outcome;
}

}  // namespace quorvel::figures
