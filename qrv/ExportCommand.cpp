#include <filesystem>
#include <map>
#include <utility>

#include "qrv/Commands.h"
#include "qrv/Input.h"
#include "qrv/Output.h"
#include "qrv/Problem.h"
#include "qrv/SheetCsv.h"
#include "qrv/SheetJson.h"

namespace quorvel {

namespace {

bool isJsonWanted(const Request& request) {
    return request.format == "json";
}

void writeSheet(const std::string& name, const GradeSheet& sheet, const Request& request,
                const CodePage& codePage, TextWriter& writer) {
    if (isJsonWanted(request)) {
        writeSheetJson(name, sheet, codePage, writer);
    } else {
        writeSheetCsv(sheet, codePage, request.forSpreadsheet, writer);
    }
}

/// All sheets one after the other, those of csv with an empty line between them.
ExitCode exportToOneFile(const Request& request, Environment& environment) {
    return writeForEachSheet(request, environment, isJsonWanted(request) ? "" : "\n",
                             [&](const std::string& name, SheetParts& parts) {
                                 const OpenedSheet opened = openSheet(name, request, environment);
                                 writeSheet(name, opened.sheet, request, environment.codePage,
                                            parts.next());
                                 return opened.exitCode();
                             });
}

ExitCode exportIntoFolder(const Request& request, Environment& environment) {
    std::map<std::filesystem::path, std::string> sources;
    return forEachSheet(request, [&](const std::string& name) {
        const OpenedSheet opened = openSheet(name, request, environment);
        std::filesystem::path target = pathOf(*request.output) / pathOf(name).stem();
        target += isJsonWanted(request) ? ".json" : ".csv";
        requireOtherFile(utf8Of(target), request.files);
        const auto [source, isNew] = sources.emplace(target, name);
        if (!isNew) {
            throw InputError(name + ": its export would replace that of " + source->second);
        }
        writeResult(utf8Of(target), environment, [&](OutputFile& file) {
            TextWriter writer(file);
            writeSheet(name, opened.sheet, request, environment.codePage, writer);
            return writer.finish();
        });
        return opened.exitCode();
    });
}

}  // namespace

ExitCode exportSheets(const Request& request, Environment& environment) {
    if (isFolder(request.output)) return exportIntoFolder(request, environment);
    return exportToOneFile(request, environment);
}

}  // namespace quorvel
