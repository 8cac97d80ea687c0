#include "tests/scenario/LineReader.h"

#include <algorithm>
#include <charconv>

namespace quorvel::scenario {

namespace {

bool isBlank(char character) {
    return character == ' ' || character == '\t';
}

std::optional<int> hexadecimalDigit(char character) {
    if (character >= '0' && character <= '9') return character - '0';
    if (character >= 'a' && character <= 'f') return character - 'a' + 10;
    if (character >= 'A' && character <= 'F') return character - 'A' + 10;
    return std::nullopt;
}

std::optional<char> hexadecimalByte(std::string_view digits) {
    if (digits.size() < 2) return std::nullopt;
    const auto high = hexadecimalDigit(digits[0]);
    const auto low = hexadecimalDigit(digits[1]);
    if (!high || !low) return std::nullopt;
    return static_cast<char>(*high * 16 + *low);
}

template <typename Number, typename... Options>
std::optional<Number> wholeNumber(std::string_view text, Options... options) {
    Number number{};
    const auto [end, error] =
        std::from_chars(text.data(), text.data() + text.size(), number, options...);
    if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
    return number;
}

}  // namespace

LineReader::LineReader(int number, std::string_view line) : number_(number) {
    std::size_t position = 0;
    while (position < line.size()) {
        if (isBlank(line[position])) {
            ++position;
        } else if (line[position] == '#') {
            break;
        } else if (line[position] == '"') {
            readQuoted(line, position);
        } else {
            const std::size_t end = std::min(line.find_first_of(" \t\"", position), line.size());
            tokens_.push_back({std::string(line.substr(position, end - position)), false});
            position = end;
        }
    }
}

void LineReader::readQuoted(std::string_view line, std::size_t& position) {
    std::string text;
    for (++position; position < line.size(); ++position) {
        if (line[position] == '"') {
            tokens_.push_back({std::move(text), true});
            ++position;
            return;
        }
        if (line[position] != '\\') {
            text += line[position];
            continue;
        }
        const char escape = ++position < line.size() ? line[position] : ' ';
        if (escape == '"' || escape == '\\') {
            text += escape;
        } else if (escape == 'n') {
            text += "\r\n";
        } else if (escape == 'x') {
            const auto byte = hexadecimalByte(line.substr(position + 1));
            if (!byte) fail("\\x needs two hexadecimal digits");
            text += *byte;
            position += 2;
        } else {
            fail(std::string("\\") + escape + " is no escape");
        }
    }
    fail("a text without its closing quotation mark");
}

void LineReader::fail(const std::string& reason) const {
    throw SyntaxError(number_, reason);
}

std::string LineReader::word() {
    if (atEnd()) fail("the line ends too early");
    if (tokens_[next_].quoted) fail("\"" + tokens_[next_].text + "\" is unexpected here");
    return tokens_[next_++].text;
}

std::string LineReader::text() {
    if (atEnd()) fail("the line ends too early: a text in quotation marks is missing");
    if (!tokens_[next_].quoted)
        fail("a text in quotation marks is expected instead of " + tokens_[next_].text);
    return tokens_[next_++].text;
}

int LineReader::integer() {
    const std::string digits = word();
    const auto number = wholeNumber<int>(digits);
    if (!number) fail("a whole number is expected instead of " + digits);
    return *number;
}

double LineReader::decimal() {
    const std::string digits = word();
    const auto number = wholeNumber<double>(digits, std::chars_format::fixed);
    if (!number) fail("a number is expected instead of " + digits);
    return *number;
}

std::uint32_t LineReader::colour() {
    const std::string digits = word();
    const auto number = wholeNumber<std::uint32_t>(digits, 16);
    if (!number || digits.size() != 6)
        fail("a colour of six hexadecimal digits is expected instead of " + digits);
    return *number;
}

bool LineReader::take(std::string_view word) {
    if (atEnd() || tokens_[next_].quoted || tokens_[next_].text != word) return false;
    ++next_;
    return true;
}

void LineReader::require(std::string_view word) {
    if (take(word)) return;
    const std::string expected = std::string("\"").append(word) + "\" is expected";
    if (atEnd()) fail("the line ends too early: " + expected);
    fail(expected + " instead of " + tokens_[next_].text);
}

void LineReader::requireEnd() const {
    if (!atEnd()) fail("\"" + tokens_[next_].text + "\" is too much");
}

std::optional<std::vector<std::byte>> bytesFromHexadecimal(std::string_view digits) {
    std::vector<std::byte> bytes;
    for (std::size_t position = 0; position < digits.size();) {
        if (isBlank(digits[position])) {
            ++position;
            continue;
        }
        const auto byte = hexadecimalByte(digits.substr(position));
        if (!byte) return std::nullopt;
        bytes.push_back(static_cast<std::byte>(*byte));
        position += 2;
    }
    return bytes;
}

}  // namespace quorvel::scenario
