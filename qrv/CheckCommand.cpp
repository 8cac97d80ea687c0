#include "qrv/Commands.h"
#include "qrv/Input.h"
#include "storage/SheetFile.h"

namespace quorvel {

namespace {

template <typename Number>
std::string line(const char* label, const std::optional<Number>& number) {
    return std::string(label) + ": " + (number ? std::to_string(*number) : "unknown") + '\n';
}

}  // namespace

Outcome check(const Arguments& arguments, Environment& environment) {
    settingsFor(arguments, environment);
    const std::string& path = arguments.operands.at(0);
    const Bytes bytes = readFile(environment, path);
    RecordReader reader(bytes);
    const SheetCheck found = checkSheet(reader);
    Outcome outcome;
    outcome.output = line("students", found.studentCount) +
                     line("assignments", found.assignmentCount) +
                     line("records wanted", found.recordsWanted) +
                     line("records present", std::optional(found.recordsPresent));
    if (!found.firstDamage) {
        outcome.output += "whole: yes\n";
        return outcome;
    }
    const auto& [number, reason] = *found.firstDamage;
    const std::string damage = std::to_string(number) + ": " + reason;
    outcome.output += "whole: no\nfirst damaged record: " + damage + '\n';
    outcome.problem = path + ": record " + damage;
    return outcome;
}

}  // namespace quorvel
