#include <algorithm>
#include <cstdint>
#include <numeric>
#include <string>
#include <vector>

#include "core/CodePage.h"
#include "tests/speed/Sizes.h"

namespace quorvel {

namespace {

void recompute(benchmark::State& state) {
    GradeSheet sheet = sampleClass(studentsOf(state));
    const GradingScale scale;
    for (auto _ : state) {
        sheet.recomputeFigures(scale);
        benchmark::DoNotOptimize(sheet.figures(1));
    }
}

/// The numbers of the same cells, one after the other as they lie.
std::vector<std::vector<std::int32_t>> numbersOf(const GradeSheet& sheet) {
    std::vector<std::vector<std::int32_t>> numbers;
    for (int assignment = 1; assignment <= sheet.assignmentCount(); ++assignment) {
        auto& column = numbers.emplace_back();
        for (int student = 1; student <= sheet.studentCount(); ++student)
            column.push_back(
                static_cast<std::int32_t>(sheet.score(assignment, student).reading().toInteger()));
    }
    return numbers;
}

void addUp(const std::vector<std::int32_t>& column, std::vector<std::int32_t>& sums) {
    for (std::size_t i = 0; i < column.size(); ++i) sums[i] += column[i];
}

void onePass(benchmark::State& state) {
    const auto numbers = numbersOf(sampleClass(studentsOf(state)));
    for (auto _ : state) {
        std::vector<std::int32_t> sums(numbers[0].size());
        for (const auto& column : numbers) addUp(column, sums);
        benchmark::DoNotOptimize(sums.data());
        benchmark::ClobberMemory();
    }
}

/// In order but for the student who came last and belongs to the front.
GradeSheet classWithNewStudent(int students) {
    GradeSheet sheet = sampleClass(students - 1);
    sheet.sortRoster(CodePage::windows1252());
    sheet.addStudent("0, First", "First");
    for (int assignment = 1; assignment <= sheet.assignmentCount(); ++assignment)
        sheet.setScore(assignment, sheet.studentCount(), Score::zero());
    return sheet;
}

void sortRoster(benchmark::State& state) {
    const GradeSheet sheet = classWithNewStudent(studentsOf(state));
    for (auto _ : state) {
        state.PauseTiming();
        GradeSheet copy = sheet;
        state.ResumeTiming();
        copy.sortRoster(CodePage::windows1252());
        benchmark::DoNotOptimize(copy.studentName(1));
        state.PauseTiming();
        copy = GradeSheet();
        state.ResumeTiming();
    }
}

/// As large as a stored cell.
using PlainCell = std::int16_t;

/// What sorting cannot do without: the names in order, and every cell at its new place.
void sortNamesAndMoveCells(benchmark::State& state) {
    const GradeSheet sheet = classWithNewStudent(studentsOf(state));
    std::vector<std::string> names;
    for (int student = 1; student <= sheet.studentCount(); ++student)
        names.push_back(sheet.studentName(student));
    const std::vector<std::vector<PlainCell>> cells(manyAssignments,
                                                    std::vector<PlainCell>(names.size()));
    for (auto _ : state) {
        state.PauseTiming();
        auto copy = cells;
        state.ResumeTiming();
        std::vector<std::size_t> order(names.size());
        std::iota(order.begin(), order.end(), 0);
        std::ranges::stable_sort(
            order, {}, [&](std::size_t i) -> const auto& { return names[i]; });
        for (auto& column : copy) {
            std::vector<PlainCell> moved;
            moved.reserve(order.size());
            for (const std::size_t i : order) moved.push_back(column[i]);
            column = std::move(moved);
        }
        benchmark::DoNotOptimize(copy.data());
        state.PauseTiming();
        copy.clear();
        state.ResumeTiming();
    }
}

BENCHMARK(recompute)->Apply(eachSize);
BENCHMARK(onePass)->Apply(eachSize);
BENCHMARK(sortRoster)->Apply(eachSize);
BENCHMARK(sortNamesAndMoveCells)->Apply(eachSize);

}  // namespace

}  // namespace quorvel
