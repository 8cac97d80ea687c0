#include <cstdlib>
#include <exception>
#include <iostream>

#include "tests/hostile/Victims.h"

namespace {

using quorvel::hostile::Toll;
using quorvel::hostile::Victim;

/// Where the numbers of a file stand that say what follows: a type, or the length of a text.
constexpr std::size_t firstNumber = 0;
constexpr std::size_t secondNumber = 2;

bool survives(const Victim& victim) {
    Toll toll;
    try {
        const auto lengths = tryLengths(victim, 1, toll);
        std::cout << victim.name << ": " << lengths << " lengths, " << std::flush;
        const auto bits = tryBits(victim, 1, toll);
        std::cout << bits << " changed bits, " << std::flush;
        const auto numbers =
            tryNumbers(victim, firstNumber, 1, toll) + tryNumbers(victim, secondNumber, 1, toll);
        std::cout << numbers << " types and lengths: at most " << toll.seconds << " s and "
                  << toll.bytes << " bytes beyond the file" << std::endl;
        return true;
    } catch (const std::exception& error) {
        std::cout << victim.name << ": " << error.what() << std::endl;
        return false;
    }
}

}  // namespace

/// Damages every kind of file in every way there is. The last line is "N passed, N failed".
int main() {
    int passed = 0;
    int failed = 0;
    for (const Victim& victim : quorvel::hostile::victims()) ++(survives(victim) ? passed : failed);
    std::cout << passed << " passed, " << failed << " failed\n";
    return failed == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
