#include "tests/qrv/ProgramFixture.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <vector>

#include <sys/wait.h>

namespace quorvel {

namespace {

/// No call takes longer; one that hangs fails its test.
constexpr const char* timeLimit = "60";
constexpr std::size_t recordSize = 128;

std::filesystem::path emptyFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "qrv-test-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error("no folder for the test");
    return name;
}

}  // namespace

const char* const classCsv =
    "Name,Alias,Quiz,Test,\"Essay, long\",Bonus\n"
    "Value,,20,100,50,0\n"
    "\"Doe, Jane\",Jane,17,95,E,3\n"
    "\"Roe, Rick\",Rick,,89,40.25,0\n"
    "\xC3\x85str\xC3\xB6m,\xC3\x85se,20,100,50,\n";

ProgramTest::ProgramTest() : folder_(emptyFolder()) {}

ProgramTest::~ProgramTest() {
    std::error_code error;
    std::filesystem::remove_all(folder_, error);
}

ProgramRun ProgramTest::shell(const std::string& command) const {
    const std::string out = folder_.string() + ".out";
    const std::string err = folder_.string() + ".err";
    const std::string script = "cd '" + folder_.string() + "' && qrv() { timeout " + timeLimit +
                               " '" + QUORVEL_QRV + "' \"$@\"; }\n(" + command + "\n) >'" + out +
                               "' 2>'" + err + "'";
    const int status = std::system(script.c_str());
    ProgramRun run;
    if (WIFEXITED(status)) run.exitCode = WEXITSTATUS(status);
    run.output = read(out);
    run.problem = read(err);
    std::filesystem::remove(out);
    std::filesystem::remove(err);
    return run;
}

ProgramRun ProgramTest::qrv(const std::string& words) const {
    return shell("qrv " + words);
}

std::string ProgramTest::memoryLimit() {
#ifdef __SANITIZE_ADDRESS__
    // Its own bookkeeping claims addresses without end.
    return "export ASAN_OPTIONS=hard_rss_limit_mb=300; ";
#else
    return "ulimit -v 100000; ";
#endif
}

void ProgramTest::write(const std::string& file, std::string_view content) const {
    std::ofstream(folder_ / file, std::ios::binary) << content;
}

std::string ProgramTest::read(const std::string& file) const {
    std::ifstream stream(folder_ / file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::string ProgramTest::listing() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder_)) {
        names.push_back(entry.path().filename().string());
    }
    std::ranges::sort(names);
    std::string listing;
    for (const std::string& name : names) listing += name + ' ';
    return listing;
}

void ProgramTest::makeClass() const {
    write("class.csv", classCsv);
    const ProgramRun made = qrv("import class.csv -o class.qrv --title 'Math - 1'");
    ASSERT_EQ(made.exitCode, 0) << made.problem;
}

void ProgramTest::writeScale(const std::string& file, const std::string& scale) const {
    const auto record = [](std::string start) {
        start.resize(recordSize);
        return start;
    };
    std::string records;
    std::istringstream minimums(scale);
    for (std::string minimum; std::getline(minimums, minimum, ',');) {
        records += record({static_cast<char>(std::stoi(minimum)), 0});
    }
    write(file, records + record(std::string("\x01\x00\x30", 3)));
}

testing::AssertionResult isOneLine(const std::string& text, const std::string& start) {
    if (text.starts_with(start) && text.find('\n') == text.size() - 1) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure() << "one line was expected that starts with \"" << start
                                       << "\", there came \"" << text << "\"";
}

}  // namespace quorvel
