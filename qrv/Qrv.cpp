#include "qrv/Qrv.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>
#include <variant>

#include "qrv/CommandLine.h"
#include "qrv/Complaints.h"
#include "qrv/Input.h"
#include "qrv/Output.h"
#include "qrv/Problem.h"

namespace quorvel {

namespace {

struct Command {
    std::string_view name;
    ExitCode (*run)(const Request& request, Environment& environment);
};

constexpr std::array<Command, 6> commands{{
    {"figures", figures},
    {"report", report},
    {"export", exportSheets},
    {"import", importSheet},
    {"page", page},
    {"check", check},
}};

void print(const std::string& text, Environment& environment) {
    writeResult(std::nullopt, environment, [&](OutputFile& file) {
        TextWriter writer(file);
        writer.write(text);
        return writer.finish();
    });
}

ExitCode run(const std::vector<std::string>& words, Environment& environment) {
    auto parsed = parseCommandLine(words, scaleText(settingsFor({}, "", environment)));
    if (const auto* help = std::get_if<HelpText>(&parsed)) {
        print(help->text, environment);
        return ExitCode::Done;
    }
    auto& request = std::get<Request>(parsed);
    if (environment.expandsWildcards) {
        request.files = expandWildcards(request.files, environment.files);
    }
    if (request.output) requireOtherFile(*request.output, request.files);
    return std::ranges::find(commands, request.command, &Command::name)->run(request, environment);
}

}  // namespace

ExitCode runQrv(const std::vector<std::string>& words, Environment& environment) {
    try {
        return run(words, environment);
    } catch (const UsageError& error) {
        complain(error.what());
        return ExitCode::WrongUsage;
    } catch (const std::exception& error) {
        complain(error.what());
        return ExitCode::InputFailed;
    }
}

}  // namespace quorvel
