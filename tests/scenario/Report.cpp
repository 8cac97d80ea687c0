#include <string_view>

#include "tests/scenario/Records.h"
#include "tests/scenario/Runner.h"

namespace quorvel::scenario {

namespace {

std::string scenarioText(const std::filesystem::path& file) {
    const auto bytes = fileBytes(file);
    if (!bytes) throw ScenarioError("the file cannot be read");
    std::string text;
    for (const std::byte byte : *bytes) text += static_cast<char>(byte);
    return text;
}

Verdict runFile(const std::filesystem::path& file, const DriverMaker& makeDriver) {
    try {
        const Scenario scenario = parseScenario(scenarioText(file));
        const auto driver = makeDriver(scenario);
        return runScenario(scenario, *driver, file.parent_path());
    } catch (const SyntaxError& error) {
        return {{{error.line(), "a step of a scenario", error.what()}}, 0};
    } catch (const std::exception& error) {
        return {{{0, "a scenario that can be run", error.what()}}, 0};
    }
}

void reportVerdict(const std::filesystem::path& file, const Verdict& verdict,
                   std::ostream& report) {
    report << file.string() << ": " << (verdict.failures.empty() ? "passed" : "FAILED");
    if (verdict.linesLeft > 0)
        report << ", " << verdict.linesLeft << " lines left to the headless run";
    report << '\n';
    for (const Failure& failure : verdict.failures)
        report << "  line " << failure.line << "\n    expected: " << failure.expected
               << "\n    came:     " << failure.came << '\n';
    report.flush();
}

}  // namespace

int runFiles(std::span<const std::filesystem::path> files, const DriverMaker& makeDriver,
             std::ostream& report) {
    int passed = 0;
    int failed = 0;
    int linesLeft = 0;
    for (const std::filesystem::path& file : files) {
        const Verdict verdict = runFile(file, makeDriver);
        reportVerdict(file, verdict, report);
        ++(verdict.failures.empty() ? passed : failed);
        linesLeft += verdict.linesLeft;
    }
    if (linesLeft > 0) report << linesLeft << " lines left to the headless run\n";
    report << passed << " passed, " << failed << " failed\n";
    return failed == 0 ? 0 : 1;
}

}  // namespace quorvel::scenario
