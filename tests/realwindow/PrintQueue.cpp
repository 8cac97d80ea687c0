#include "tests/realwindow/PrintQueue.h"

#include <array>
#include <fstream>
#include <iterator>
#include <string>
#include <utility>

#include <windows.h>

#include "tests/realwindow/PrintedPage.h"
#include "tests/realwindow/SystemTexts.h"

namespace quorvel::scenario {

namespace {

constexpr DWORD printingTimeout = 20'000;  // milliseconds
constexpr DWORD printingPause = 10;

std::string contentOf(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

/// Today's date as the program prints it.
std::string systemDate() {
    std::array<wchar_t, 80> text{};
    GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, DATE_SHORTDATE, nullptr, nullptr, text.data(),
                    static_cast<int>(text.size()), nullptr);
    return inCodePage(text.data());
}

}  // namespace

PrintQueue::PrintQueue(std::filesystem::path folder)
    : folder_(std::move(folder)), firstDate_(systemDate()) {
    earlierJobs_ = jobsTaken();
}

/// The scheduler logs each document before the program that sent it goes on.
int PrintQueue::jobsTaken() const {
    constexpr std::string_view taken = " Send-Document successful-ok";
    if (folder_.empty()) return 0;
    const std::string log = contentOf(folder_ / "log" / "access_log");
    int jobs = 0;
    for (std::size_t position = log.find(taken); position != std::string::npos;
         position = log.find(taken, position + 1))
        ++jobs;
    return jobs;
}

std::vector<PrintedJob> PrintQueue::jobs() const {
    std::vector<PrintedJob> printed;
    const int last = jobsTaken();
    for (int number = earlierJobs_ + 1; number <= last; ++number)
        printed.push_back(readJob(number));
    return printed;
}

PrintedJob PrintQueue::readJob(int number) const {
    const std::filesystem::path out = folder_ / "out";
    const std::string name = "job-" + std::to_string(number);
    const DWORD start = GetTickCount();
    while (!std::filesystem::exists(out / (name + ".done"))) {
        if (GetTickCount() - start > printingTimeout)
            throw ScenarioError("a print job does not come out of the queue");
        Sleep(printingPause);
    }
    const PrintedPages paper = parsePrintedPages(contentOf(out / (name + ".xml")));
    PrintedJob job;
    // It may have been printed before midnight.
    const std::array dates{systemDate(), firstDate_};
    const FontOnPaper font = paper.fonts.empty() ? FontOnPaper{"", 1} : paper.fonts.front();
    for (const PrintedPage& page : paper.pages) job.pages.push_back(linesOf(page, font, dates));
    job.landscape = !paper.pages.empty() && paper.pages.front().landscape;
    job.font = paper.fonts.size() == 1 ? fontOf(font) : PrintFont{"several fonts", 0};
    return job;
}

}  // namespace quorvel::scenario
