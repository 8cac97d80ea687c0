#include <string>

#include "tests/speed/OpenedWindow.h"
#include "tests/speed/Sizes.h"
#include "window/Keys.h"

namespace quorvel {

namespace {

constexpr int typicalStudents = 35;
constexpr int typicalAssignments = 40;

/// From Enter in the editor to figures and picture complete.
void commitScores(benchmark::State& state, int students, int assignments) {
    NullCanvas canvas;
    OpenedWindow window(canvas, students, assignments);
    int score = 0;
    for (auto _ : state) {
        state.PauseTiming();
        window.clickCell(score % 7, score % 5);
        window.form().txtEnter_Change(std::to_string(score++ % 20));
        state.ResumeTiming();
        window.form().txtEnter_KeyDown(key::enter, false);
    }
}

void commitScore(benchmark::State& state) {
    commitScores(state, studentsOf(state), manyAssignments);
}

void commitScoreOfTypicalClass(benchmark::State& state) {
    commitScores(state, typicalStudents, typicalAssignments);
}

/// The two places that a scroll bar is moved between, so that all rows differ.
constexpr int oneEnd = 1;
constexpr int otherEnd = 40;

void refreshGrid(benchmark::State& state) {
    PixelCanvas canvas;
    OpenedWindow window(canvas, studentsOf(state), manyAssignments);
    int position = oneEnd;
    for (auto _ : state) {
        position = position == oneEnd ? otherEnd : oneEnd;
        window.form().scroll(&Controls::vsbS, position);
    }
}

/// The figures, and as many glyphs copied as that refresh copies.
void recomputeAndCopy(benchmark::State& state) {
    PixelCanvas canvas;
    const auto copies = [&] {
        OpenedWindow window(canvas, studentsOf(state), manyAssignments);
        window.form().scroll(&Controls::vsbS, otherEnd);
        canvas.copies = 0;
        window.form().scroll(&Controls::vsbS, oneEnd);
        return canvas.copies;
    }();
    GradeSheet sheet = sampleClass(studentsOf(state));
    const GradingScale scale;
    for (auto _ : state) {
        sheet.recomputeFigures(scale);
        for (int copy = 0; copy < copies; ++copy)
            canvas.copyGlyph(Surface::Grid, copy % Canvas::glyphCount,
                             copy % PixelCanvas::glyphsAcross * Canvas::glyphWidth,
                             copy / PixelCanvas::glyphsAcross * Canvas::glyphHeight);
        benchmark::ClobberMemory();
    }
}

BENCHMARK(commitScore)->Apply(eachSize);
BENCHMARK(commitScoreOfTypicalClass)->Unit(benchmark::kMicrosecond);
BENCHMARK(refreshGrid)->Apply(eachSize);
BENCHMARK(recomputeAndCopy)->Apply(eachSize);

}  // namespace

}  // namespace quorvel
