#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <span>
#include <string_view>

#include "tests/fuzz/Trials.h"

namespace {

using quorvel::fuzz::trials;

// libFuzzer hands nothing of ours on from one of its calls to the other.
const quorvel::fuzz::Trial* chosenTrial = nullptr;

}  // namespace

/// fuzzer TRIAL ARGUMENT...: takes the trial's name out of what libFuzzer is to read.
extern "C" int LLVMFuzzerInitialize(int* count, char*** arguments) {
    const std::string_view name = *count > 1 ? (*arguments)[1] : "";
    chosenTrial = std::ranges::find(trials, name, &quorvel::fuzz::Trial::name);
    if (chosenTrial == trials.end()) {
        std::cerr << "usage: fuzzer TRIAL ARGUMENT...\n";
        std::_Exit(2);
    }
    std::copy(*arguments + 2, *arguments + *count, *arguments + 1);
    --*count;
    return 0;
}

/// What libFuzzer calls with everything that it thinks of.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    chosenTrial->run(std::as_bytes(std::span(bytes, size)));
    return 0;
}
