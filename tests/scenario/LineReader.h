#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tests/scenario/Scenario.h"

namespace quorvel::scenario {

/// Reads the words and texts of one line, from left to right. What stands there instead of what is
/// asked for throws SyntaxError.
class LineReader {
  public:
    /// `line` is in the code page. A `#` that begins a word begins a comment.
    LineReader(int number, std::string_view line);

    int number() const { return number_; }
    bool atEnd() const { return next_ == tokens_.size(); }
    /// True where a text in quotes comes next.
    bool textComesNext() const { return !atEnd() && tokens_[next_].quoted; }

    /// The next word, which is not in quotes.
    std::string word();
    /// The next text, which stands in quotes; its escapes are resolved.
    std::string text();
    int integer();
    /// A number of 0 or more with or without a fraction, such as a pixel.
    double decimal();
    /// The six hexadecimal digits of a colour.
    std::uint32_t colour();

    /// Takes the next word if it is this one.
    bool take(std::string_view word);
    void require(std::string_view word);
    /// Throws unless everything was read.
    void requireEnd() const;

    [[noreturn]] void fail(const std::string& reason) const;

  private:
    struct Token {
        std::string text;
        bool quoted = false;
    };

    void readQuoted(std::string_view line, std::size_t& position);

    int number_;
    std::vector<Token> tokens_;
    std::size_t next_ = 0;
};

/// The bytes that pairs of hexadecimal digits stand for; blanks between pairs are allowed.
/// Nothing when there is anything else.
std::optional<std::vector<std::byte>> bytesFromHexadecimal(std::string_view digits);

}  // namespace quorvel::scenario
