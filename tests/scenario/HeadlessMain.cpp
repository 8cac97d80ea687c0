#include <iostream>

#include "tests/scenario/HeadlessDriver.h"
#include "tests/scenario/Runner.h"

int main(int argumentCount, char** arguments) {
    using namespace quorvel::scenario;
    const std::vector<std::filesystem::path> files(arguments + 1, arguments + argumentCount);
    if (files.empty()) {
        std::cerr << "usage: scenario_headless FILE...\n";
        return 2;
    }
    const DriverMaker makeDriver = [](const Scenario&) {
        return std::make_unique<HeadlessDriver>();
    };
    return runFiles(files, makeDriver, std::cout);
}
