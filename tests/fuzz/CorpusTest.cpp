#include <filesystem>
#include <fstream>
#include <iterator>
#include <span>
#include <string>

#include "tests/fuzz/Trials.h"

#include <gtest/gtest.h>

namespace quorvel::fuzz {
namespace {

std::string bytesOf(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// What was found worth keeping is tried in every run.
TEST(Corpus, BreaksNothing) {
    const std::filesystem::path corpus = QUORVEL_CORPUS;
    for (const Trial& trial : trials) {
        int files = 0;
        for (const auto& file : std::filesystem::directory_iterator(corpus / trial.name)) {
            SCOPED_TRACE(file.path());
            const std::string bytes = bytesOf(file.path());
            EXPECT_NO_THROW(trial.run(std::as_bytes(std::span(bytes))));
            ++files;
        }
        EXPECT_GT(files, 0) << trial.name;
    }
}

}  // namespace
}  // namespace quorvel::fuzz
