#include <algorithm>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>

#include "tests/walk/Walk.h"

#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr std::uint64_t usualRoute = 1;
constexpr int usualSteps = 100'000;
/// A scenario that is short enough to be read and long enough to get somewhere.
constexpr int stepsPerScenario = 250;
/// What takes longer hangs.
constexpr unsigned secondsPerScenario = 30;

/// Walks in scenarios of their own, each from a fresh program; false where something did not hold.
bool walk(std::uint64_t route, int steps, const std::filesystem::path& file) {
    quorvel::walk::ScenarioLog log(file);
    try {
        for (int taken = 0; taken < steps; taken += stepsPerScenario) {
            alarm(secondsPerScenario);
            const quorvel::walk::RandomNumbers choices(route++);
            quorvel::walk::Walk(choices, log).takeSteps(std::min(stepsPerScenario, steps - taken));
        }
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return false;
    }
    return true;
}

/// Walks in a process of its own, so that a crash can still be told about.
bool walkApart(std::uint64_t route, int steps, const std::filesystem::path& file) {
    const pid_t child = fork();
    if (child < 0) {
        std::cerr << "cannot start the walk\n";
        return false;
    }
    if (child == 0) std::exit(walk(route, steps, file) ? EXIT_SUCCESS : EXIT_FAILURE);
    int status = 0;
    waitpid(child, &status, 0);
    if (WIFSIGNALED(status)) std::cerr << "the walk ended with signal " << WTERMSIG(status) << '\n';
    return WIFEXITED(status) && WEXITSTATUS(status) == EXIT_SUCCESS;
}

}  // namespace

/// random_walk [ROUTE [STEPS [FILE]]]: another route is another walk; FILE keeps its last scenario.
int main(int argumentCount, char** arguments) {
    const std::uint64_t route =
        argumentCount > 1 ? std::strtoull(arguments[1], nullptr, 10) : usualRoute;
    const int steps = argumentCount > 2 ? std::atoi(arguments[2]) : usualSteps;
    const bool keep = argumentCount > 3;
    const std::filesystem::path file =
        keep ? std::filesystem::path(arguments[3])
             : std::filesystem::temp_directory_path() /
                   ("random-walk-" + std::to_string(getpid()) + ".scenario");

    const bool passed = walkApart(route, steps, file);
    if (!passed) std::cerr << "what led there:\n" << std::ifstream(file).rdbuf();
    if (!keep) std::filesystem::remove(file);
    std::cout << "random walk of " << steps << " steps on route " << route
              << (passed ? ": passed" : ": FAILED") << '\n';
    return passed ? EXIT_SUCCESS : EXIT_FAILURE;
}
