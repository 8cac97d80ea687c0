#include <algorithm>

#include "core/CodePage.h"
#include "core/Numbers.h"
#include "tests/scenario/Comparison.h"
#include "tests/scenario/Records.h"

namespace quorvel::scenario {

namespace {

/// A job as one text: lines ended by LF, a form feed before the first line of every further page.
std::string textOfJob(const PrintedJob& job) {
    std::string text;
    for (std::size_t page = 0; page < job.pages.size(); ++page) {
        if (page > 0) text += '\f';
        for (const std::string& line : job.pages[page]) text += line + '\n';
    }
    return text;
}

std::vector<std::string_view> linesOf(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        lines.push_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

std::string fileText(const std::filesystem::path& file) {
    const auto bytes = fileBytes(file);
    if (!bytes) throw ScenarioError("there is no file " + file.filename().string());
    std::string text;
    for (const std::byte byte : *bytes) text += static_cast<char>(byte);
    return CodePage::windows1252().fromUtf8(text);
}

}  // namespace

std::optional<PrintedJob> Comparison::lastJob() const {
    const auto jobs = driver_.printedJobs();
    if (!jobs) return std::nullopt;
    if (jobs->empty()) throw ScenarioError("nothing was printed");
    return jobs->back();
}

Outcome Comparison::operator()(const PrintedFile& expected) const {
    const auto job = lastJob();
    if (!job) return cannotBeSeen();
    const std::string wanted = fileText(folder_ / expected.file);
    const std::string printed = textOfJob(*job);
    if (printed == wanted) return asExpected();

    const auto wantedLines = linesOf(wanted);
    const auto printedLines = linesOf(printed);
    const auto [in, out] = std::ranges::mismatch(wantedLines, printedLines);
    const std::string line = std::to_string(in - wantedLines.begin() + 1);
    return different("line " + line + " is " +
                     (out == printedLines.end() ? "missing" : quotedText(*out)) + " instead of " +
                     (in == wantedLines.end() ? "missing" : quotedText(*in)));
}

Outcome Comparison::operator()(const PrintedLine& expected) const {
    const auto job = lastJob();
    if (!job) return cannotBeSeen();
    const auto pages = static_cast<int>(job->pages.size());
    if (expected.page < 1 || expected.page > pages)
        return different("there are " + std::to_string(pages) + " pages");
    const auto& lines = job->pages[static_cast<std::size_t>(expected.page) - 1];
    if (expected.line < 1 || expected.line > static_cast<int>(lines.size()))
        return different("the page has " + std::to_string(lines.size()) + " lines");
    const std::string& line = lines[static_cast<std::size_t>(expected.line) - 1];
    return whether(line == expected.text, quotedText(line));
}

Outcome Comparison::operator()(const PrintedContains& expected) const {
    const auto job = lastJob();
    if (!job) return cannotBeSeen();
    const std::string printed = textOfJob(*job);
    return whether(printed.find(expected.text) != std::string::npos, quotedText(printed));
}

Outcome Comparison::operator()(const PrintedFont& expected) const {
    const auto job = lastJob();
    if (!job || !job->font) return cannotBeSeen();
    return whether(job->font->name == expected.name && job->font->size == expected.size,
                   quotedText(job->font->name) + " " + decimalText(job->font->size));
}

Outcome Comparison::operator()(const PrintedLandscape&) const {
    const auto job = lastJob();
    if (!job || !job->landscape) return cannotBeSeen();
    return whether(*job->landscape, "portrait");
}

Outcome Comparison::operator()(const PrintedNothing&) const {
    const auto jobs = driver_.printedJobs();
    if (!jobs) return cannotBeSeen();
    return whether(jobs->empty(), std::to_string(jobs->size()) + " jobs");
}

}  // namespace quorvel::scenario
