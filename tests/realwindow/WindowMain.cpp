#include <cstdio>
#include <iostream>
#include <map>
#include <string_view>

#include <windows.h>

#include "tests/realwindow/Bench.h"
#include "tests/realwindow/WindowDriver.h"
#include "tests/scenario/Runner.h"

#include <fcntl.h>
#include <io.h>

namespace {

using namespace quorvel::scenario;

int usage() {
    std::cerr << "usage: scenario_window --program FOLDER [--printing FOLDER] FILE...\n";
    return 2;
}

/// A screen other than this one is another bench's. A printer that fails is nobody's: what needs it
/// is left to the headless run.
std::unique_ptr<Driver> driverFor(const Scenario& scenario, const Bench& bench) {
    if (scenario.screen() != bench.screen()) throw ScenarioError("this bench has another screen");
    if (scenario.printer() != PrinterState::Fails && scenario.printer() != bench.printer())
        throw ScenarioError("this bench has another printer");
    return std::make_unique<WindowDriver>(bench);
}

}  // namespace

int wmain(int argumentCount, wchar_t** arguments) {
    _setmode(_fileno(stdout), _O_BINARY);
    std::map<std::wstring_view, std::filesystem::path> folders;
    std::vector<std::filesystem::path> files;
    for (int index = 1; index < argumentCount; ++index) {
        const std::wstring_view argument = arguments[index];
        if (!argument.starts_with(L"--"))
            files.emplace_back(argument);
        else if (index + 1 < argumentCount)
            folders[argument] = arguments[++index];
    }
    if (files.empty() || folders[L"--program"].empty()) return usage();
    try {
        const Bench bench(folders[L"--program"], folders[L"--printing"]);
        return runFiles(
            files, [&bench](const Scenario& scenario) { return driverFor(scenario, bench); },
            std::cout);
    } catch (const std::exception& error) {
        std::cerr << "scenario_window: " << error.what() << '\n';
        return 1;
    }
}
