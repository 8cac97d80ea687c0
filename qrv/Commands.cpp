#include "qrv/Commands.h"

#include <algorithm>

#include "qrv/Complaints.h"
#include "qrv/Problem.h"

namespace quorvel {

ExitCode forEachSheet(const Request& request,
                      const std::function<ExitCode(const std::string& sheet)>& work) {
    ExitCode worst = ExitCode::Done;
    const auto fail = [&](const std::exception& error, ExitCode code) {
        complain(error.what());
        worst = std::max(worst, code);
    };
    for (const std::string& sheet : request.files) {
        try {
            worst = std::max(worst, work(sheet));
        } catch (const InputError& error) {
            fail(error, ExitCode::InputFailed);
        } catch (const ReportStopped& error) {
            fail(error, ExitCode::ReportStopped);
        }
    }
    return worst;
}

ExitCode writeForEachSheet(
    const Request& request, Environment& environment, std::string_view between,
    const std::function<ExitCode(const std::string& sheet, SheetParts& parts)>& work) {
    ExitCode worst = ExitCode::Done;
    writeResult(request.output, environment, [&](OutputFile& file) {
        TextWriter writer(file);
        SheetParts parts(writer, between);
        worst = forEachSheet(request, [&](const std::string& name) { return work(name, parts); });
        return writer.finish(parts.any());
    });
    return worst;
}

}  // namespace quorvel
