#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorvel {

/// A command line taken apart. All texts are UTF-8.
struct Arguments {
    /// What is no option, in order: the command and its operands.
    std::vector<std::string> operands;
    /// The options given by their long names, with their values; a flag's value is empty.
    std::map<std::string, std::string, std::less<>> options;

    bool has(std::string_view option) const { return options.contains(option); }
    std::optional<std::string> value(std::string_view option) const;
};

/// Takes the arguments behind the program's own name apart. Throws UsageError for an unknown option
/// and for one whose value is missing or not wanted.
Arguments parseArguments(const std::vector<std::string>& arguments);

/// The whole number that all of `text` is, an optional sign included; nothing when it is none. One
/// that does not fit stops at the ends of its range.
std::optional<long long> wholeNumber(std::string_view text);

}  // namespace quorvel
