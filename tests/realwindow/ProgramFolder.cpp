#include "tests/realwindow/ProgramFolder.h"

#include <algorithm>
#include <fstream>
#include <system_error>

#include "access/Password.h"
#include "tests/scenario/Records.h"

namespace quorvel::scenario {

namespace {

std::string passwordRecord(std::string_view password) {
    constexpr char textTag = 8;
    std::string record{textTag, 0, static_cast<char>(password.size()), 0};
    record += password;
    record.resize(std::max(record.size(), recordLength), 0);
    return record;
}

void removeWithoutFail(const std::filesystem::path& path) {
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
}

}  // namespace

ProgramFolder::ProgramFolder(const std::filesystem::path& program) : path_(text) {
    std::filesystem::remove_all(path_);
    std::filesystem::create_directories(path_);
    for (const auto& entry : std::filesystem::directory_iterator(program))
        if (entry.is_regular_file())
            std::filesystem::copy_file(entry.path(), path_ / entry.path().filename());
    std::filesystem::remove(windowsPasswordFile);
}

ProgramFolder::~ProgramFolder() {
    removeWithoutFail(path_);
    removeWithoutFail(windowsPasswordFile);
}

void ProgramFolder::storePassword(std::string_view password) const {
    std::ofstream file(windowsPasswordFile, std::ios::binary | std::ios::trunc);
    if (!password.empty()) file << passwordRecord(password);
}

}  // namespace quorvel::scenario
