#pragma once

#include <optional>
#include <string>
#include <vector>

namespace quorvel {

/// What a command line asks for. All texts are UTF-8; an option that was not given keeps its
/// default.
struct Request {
    std::string command;
    /// The sheets to read, or the one file to import. "-" is standard input.
    std::vector<std::string> files;
    /// Where the result goes; nothing or "-" is standard output.
    std::optional<std::string> output;

    /// The program folder to take scale, school and teacher from.
    std::optional<std::string> settings;
    /// Five percentages, or "default".
    std::optional<std::string> scale;
    bool roundUp = false;

    /// Whether what is there of a damaged sheet is to be shown all the same.
    bool damaged = false;
    std::string format;
    bool withoutClass = false;
    bool forSpreadsheet = false;
    std::optional<std::string> title;

    int reportKind = 0;
    std::optional<int> student;
    bool useAliases = false;
    std::optional<std::string> school;
    std::optional<std::string> teacher;
    std::optional<std::string> date;
    std::optional<std::string> time;
};

}  // namespace quorvel
