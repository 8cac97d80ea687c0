#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace quorvel {

/// A figure that is held in tenths: 944 is written "94.4".
struct Tenths {
    std::int64_t count = 0;
};

/// HTML under way. What stands in the program in quotes is markup; every text that comes from
/// elsewhere is escaped, wherever it goes, so a name can hold no markup.
class Html {
  public:
    /// Adds markup (a literal), texts (UTF-8), numbers and other pieces of HTML.
    template <typename... Pieces>
    Html& add(const Pieces&... pieces) {
        (put(pieces), ...);
        return *this;
    }

    const std::string& markup() const { return markup_; }

  private:
    template <std::size_t size>
    void put(const char (&literal)[size]) {
        markup_.append(literal, size - 1);
    }
    template <std::integral Number>
    void put(Number number) {
        markup_ += std::to_string(number);
    }
    void put(std::string_view text);
    void put(Tenths figure);
    void put(const Html& other) { markup_ += other.markup_; }

    std::string markup_;
};

}  // namespace quorvel
