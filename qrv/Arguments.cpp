#include "qrv/Arguments.h"

#include <array>
#include <charconv>
#include <limits>
#include <system_error>

#include "qrv/Problem.h"

#include <getopt.h>

namespace quorvel {

namespace {

constexpr int outputOption = 'o';
/// The values of options that have no letter begin here.
constexpr int longOption = 256;

using KnownOptions = std::array<option, 13>;

/// Gives each option without a letter a value of its own: only then does getopt_long refuse a
/// shortened name that could be more than one.
constexpr KnownOptions toldApart(KnownOptions options) {
    int next = longOption;
    for (option& known : options)
        if (known.name != nullptr && known.val == 0) known.val = next++;
    return options;
}

constexpr KnownOptions knownOptions = toldApart({{
    {"alias", no_argument, nullptr, 0},
    {"date", required_argument, nullptr, 0},
    {"help", no_argument, nullptr, 0},
    {"output", required_argument, nullptr, outputOption},
    {"round-up", no_argument, nullptr, 0},
    {"scale", required_argument, nullptr, 0},
    {"school", required_argument, nullptr, 0},
    {"settings", required_argument, nullptr, 0},
    {"student", required_argument, nullptr, 0},
    {"teacher", required_argument, nullptr, 0},
    {"time", required_argument, nullptr, 0},
    {"title", required_argument, nullptr, 0},
    {nullptr, 0, nullptr, 0},
}});

/// The option that getopt_long stumbled over: it names a letter in optopt, and has moved past a
/// word.
std::string refusedOption(const std::vector<char*>& words) {
    if (optopt > 0 && optopt < longOption) return {'-', static_cast<char>(optopt)};
    return words[static_cast<std::size_t>(optind) - 1];
}

}  // namespace

std::optional<std::string> Arguments::value(std::string_view option) const {
    const auto found = options.find(option);
    if (found == options.end()) return std::nullopt;
    return found->second;
}

Arguments parseArguments(const std::vector<std::string>& arguments) {
    std::vector<std::string> words{"qrv"};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> pointers;
    pointers.reserve(words.size() + 1);
    for (std::string& word : words) pointers.push_back(word.data());
    pointers.push_back(nullptr);
    const int count = static_cast<int>(words.size());

    Arguments result;
    opterr = 0;
    optind = 1;
    while (true) {
        int index = 0;
        const int found = getopt_long(count, pointers.data(), ":o:", knownOptions.data(), &index);
        if (found == -1) break;
        if (found == ':') throw UsageError("option " + refusedOption(pointers) + " wants a value");
        if (found == '?') throw UsageError("unknown option " + refusedOption(pointers));
        const char* name =
            found == outputOption ? "output" : knownOptions[static_cast<std::size_t>(index)].name;
        result.options[name] = optarg != nullptr ? optarg : "";
    }
    for (auto word = static_cast<std::size_t>(optind); word < words.size(); ++word) {
        result.operands.emplace_back(pointers[word]);
    }
    return result;
}

std::optional<long long> wholeNumber(std::string_view text) {
    long long number = 0;
    const bool negative = text.starts_with('-');
    const char* end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number);
    if (rest != end || error == std::errc::invalid_argument) return std::nullopt;
    using Limits = std::numeric_limits<long long>;
    if (error == std::errc::result_out_of_range) return negative ? Limits::min() : Limits::max();
    return number;
}

}  // namespace quorvel
