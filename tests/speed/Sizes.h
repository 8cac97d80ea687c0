#pragma once

#include "tests/speed/SampleClass.h"

#include <benchmark/benchmark.h>

namespace quorvel {

/// Measures a row for each of the sizes.
inline void eachSize(benchmark::internal::Benchmark* row) {
    for (const int students : sizes) row->Arg(students);
    row->Unit(benchmark::kMicrosecond);
}

inline int studentsOf(const benchmark::State& state) {
    return static_cast<int>(state.range(0));
}

}  // namespace quorvel
