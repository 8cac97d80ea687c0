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
    ExitCode worst = ExitCode::Done;
    writeResult(request.output, environment, [&](OutputFile& file) {
        TextWriter writer(file);
        const bool several = request.files.size() > 1;
        bool shown = false;
        worst = forEachSheet(request, [&](const std::string& name) {
            const SettingsInForce settings = settingsFor(request, name, environment);
            const SheetCheck found = checkFile(name, environment);
            if (shown) writer.write("\n");
            shown = true;
            if (several) writer.write("sheet: " + oneLine(name) + '\n');
            writer.write(textOf(found, settings, environment.codePage));
            if (!found.firstDamage) return ExitCode::Done;
            complain(damageText(name, *found.firstDamage));
            return ExitCode::InputFailed;
        });
        return writer.finish(shown);
    });
    return worst;
}

}  // namespace quorvel
