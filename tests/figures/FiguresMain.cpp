#include <cstdlib>
#include <iostream>

#include "tests/figures/Trials.h"

namespace {

using quorvel::figures::Outcome;
using quorvel::figures::Selection;

bool report(const char* what, const Outcome& outcome) {
    std::cout << what << ": " << outcome.tried() << " tried, " << outcome.wrong() << " wrong"
              << std::endl;
    for (const std::string& words : outcome.words()) std::cout << "  " << words << '\n';
    return outcome.tried() > 0 && outcome.wrong() == 0;
}

}  // namespace

/// figures [FIRST STRIDE]: tries every STRIDE-th case of each kind, beginning with the FIRST; all
/// of them when nothing is said.
int main(int argumentCount, char** arguments) {
    Selection selection;
    if (argumentCount == 3) {
        selection.first = std::strtoull(arguments[1], nullptr, 10);
        selection.stride = std::strtoull(arguments[2], nullptr, 10);
    }
    if (argumentCount == 2 || argumentCount > 3 || selection.stride == 0) {
        std::cerr << "figures [FIRST STRIDE]\n";
        return EXIT_FAILURE;
    }
    bool isRight = report("averages", quorvel::figures::tryAverages(selection));
    isRight &= report("letters", quorvel::figures::tryLetters(selection));
    isRight &= report("ranks", quorvel::figures::tryRanks(selection));
    isRight &= report("texts", quorvel::figures::tryTexts(selection));
    isRight &= report("pairs", quorvel::figures::tryPairs(selection));
    return isRight ? EXIT_SUCCESS : EXIT_FAILURE;
}
