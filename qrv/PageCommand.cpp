#include "qrv/Commands.h"
#include "qrv/Dates.h"
#include "qrv/Input.h"
#include "qrv/Output.h"
#include "qrv/Problem.h"

#include "page/Page.h"

namespace quorvel {

namespace {

PageChoice choiceFor(const std::string& name, const Request& request, const OpenedSheet& opened,
                     const CodePage& codePage) {
    const ReportSettings& settings = opened.settings.settings;
    return {.codePage = codePage,
            .scale = settings.gradingScale,
            .heading = {.school = request.school.value_or(codePage.toUtf8(settings.schoolName)),
                        .teacher = request.teacher.value_or(codePage.toUtf8(settings.teacherName)),
                        .date = request.date ? *request.date : dateText(localTime())},
            .titleOtherwise = name == standardStream ? "Class" : utf8Of(pathOf(name).stem()),
            .useAliases = request.useAliases};
}

void addTo(Page& page, const std::string& name, const Request& request, const OpenedSheet& opened,
           const CodePage& codePage) {
    const PageChoice choice = choiceFor(name, request, opened, codePage);
    if (!request.student) return page.add(classContent(opened.sheet, choice));
    requireStudent(name, opened.sheet, *request.student);
    page.add(studentContent(opened.sheet, *request.student, choice));
}

}  // namespace

ExitCode page(const Request& request, Environment& environment) {
    const bool several = request.files.size() > 1;
    if (request.student && several) {
        throw UsageError("page: --student is for one sheet (see qrv page --help)");
    }
    ExitCode worst = ExitCode::Done;
    writeResult(request.output, environment, [&](OutputFile& file) {
        Page page(several);
        worst = forEachSheet(request, [&](const std::string& name) {
            const OpenedSheet opened = openSheet(name, request, environment);
            addTo(page, name, request, opened, environment.codePage);
            return opened.exitCode();
        });
        TextWriter writer(file);
        if (!page.isEmpty()) page.write([&](std::string_view text) { writer.write(text); });
        return writer.finish(!page.isEmpty());
    });
    return worst;
}

}  // namespace quorvel
