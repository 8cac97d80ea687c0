#pragma once

#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

namespace quorvel::figures {

/// Which of all numbered cases are tried: every `stride`-th, beginning with number `first`.
struct Selection {
    std::uint64_t first = 0;
    std::uint64_t stride = 1;
};

/// What came of trying them.
class Outcome {
  public:
    /// Counts a case; one where something differs is told about, the first few in words.
    void add(bool isRight) {
        ++tried_;
        if (!isRight) ++wrong_;
    }
    bool wantsWords() const { return words_.size() < mostWords; }
    void tell(std::string words) { words_.push_back(std::move(words)); }

    std::uint64_t tried() const { return tried_; }
    std::uint64_t wrong() const { return wrong_; }
    const std::vector<std::string>& words() const { return words_; }

  private:
    static constexpr std::size_t mostWords = 5;
    std::uint64_t tried_ = 0;
    std::uint64_t wrong_ = 0;
    std::vector<std::string> words_;
};

/// The percentage of every pair of points earned and possible, and its letter in the scale that is
/// in force without a settings file, with and without rounding up.
Outcome tryPairs(const Selection& selection);

/// The text of every percentage that a pair can come to.
Outcome tryTexts(const Selection& selection);

/// The letter of every percentage around every threshold of many scales, odd ones among them, with
/// and without rounding up.
Outcome tryLetters(const Selection& selection);

/// The average of classes of 1 to 200 students at every half tenth, and beside it.
Outcome tryAverages(const Selection& selection);

/// The ranks in every class of up to eight students, each with one of eight percentages.
Outcome tryRanks(const Selection& selection);

}  // namespace quorvel::figures
