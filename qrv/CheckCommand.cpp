#include <optional>

#include "qrv/Commands.h"
#include "qrv/Complaints.h"
#include "qrv/Input.h"
#include "qrv/Output.h"
#include "qrv/Problem.h"
#include "storage/SheetFile.h"

namespace quorvel {

namespace {

template <typename Number>
std::string line(const char* label, const std::optional<Number>& number) {
    return std::string(label) + ": " + (number ? std::to_string(*number) : "unknown") + '\n';
}

SheetCheck checkFile(const std::string& name, Environment& environment) {
    const auto file = openInput(name, environment);
    RecordReader reader(*file);
    SheetCheck found = checkSheet(reader);
    if (reader.brokeOff()) throw brokenOff(name);
    return found;
}

std::string textOf(const SheetCheck& found, const SettingsInForce& settings,
                   const CodePage& codePage) {
    std::string text = "title: " + oneLine(codePage.toUtf8(found.sheetTitle)) + '\n';
    text += line("students", found.studentCount) + line("assignments", found.assignmentCount) +
            line("records wanted", found.recordsWanted) +
            line("records present", std::optional(found.recordsPresent)) +
            "scale: " + scaleText(settings) + '\n';
    if (!found.firstDamage) return text + "whole: yes\n";
    return text + "whole: no\nfirst damaged record: " + std::to_string(found.firstDamage->number) +
           ": " + found.firstDamage->reason + '\n';
}

}  // namespace

ExitCode check(const Request& request, Environment& environment) {
    const auto checkSheetOf = [&](const std::string& name, SheetParts& parts) {
        const SettingsInForce settings = settingsFor(request, name, environment);
        const SheetCheck found = checkFile(name, environment);
        TextWriter& writer = parts.next();
        if (request.files.size() > 1) writer.write("sheet: " + oneLine(name) + '\n');
        writer.write(textOf(found, settings, environment.codePage));
        if (!found.firstDamage) return ExitCode::Done;
        complain(damageText(name, *found.firstDamage));
        return ExitCode::InputFailed;
    };
    return writeForEachSheet(request, environment, "\n", checkSheetOf);
}

}  // namespace quorvel
