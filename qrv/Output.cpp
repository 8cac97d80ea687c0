#include "qrv/Output.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <span>
#include <system_error>

#include "qrv/Input.h"
#include "qrv/Problem.h"
#include "storage/Reading.h"
#include "storage/SafeWriting.h"

namespace quorvel {

namespace {

class StandardOutput final : public OutputFile {
  public:
    /// What went wrong; 0 for nothing, and for a reader that has seen enough.
    int error() const { return error_ == EPIPE ? 0 : error_; }

    bool cut() override { return true; }
    bool flush() override { return note(std::fflush(stdout) == 0); }

  private:
    std::size_t writeSome(std::span<const std::byte> bytes) override {
        errno = 0;
        const std::size_t count = std::fwrite(bytes.data(), 1, bytes.size(), stdout);
        note(count == bytes.size());
        return error_ == 0 ? count : 0;
    }

    bool note(bool succeeded) {
        if (!succeeded && error_ == 0) error_ = errno != 0 ? errno : EIO;
        return succeeded;
    }

    int error_ = 0;
};

class Device final : public OutputFile {
  public:
    explicit Device(const std::filesystem::path& path) : stream_(path, std::ios::binary) {}

    bool cut() override { return true; }
    bool flush() override { return static_cast<bool>(stream_.flush()); }

  private:
    std::size_t writeSome(std::span<const std::byte> bytes) override {
        stream_.write(reinterpret_cast<const char*>(bytes.data()),
                      static_cast<std::streamsize>(bytes.size()));
        return stream_ ? bytes.size() : 0;
    }

    std::ofstream stream_;
};

void writeToStandardOutput(const WriteResult& write) {
    StandardOutput output;
    write(output);
    output.flush();
    if (output.error() != 0) {
        throw OutputError(std::string("standard output: ") + std::strerror(output.error()));
    }
}

std::filesystem::file_type typeOf(const std::string& name) {
    std::error_code error;
    return std::filesystem::status(pathOf(name), error).type();
}

bool isDevice(const std::string& name) {
    using enum std::filesystem::file_type;
    // What names such as NUL come to, which are no files to Windows.
    if (utf8Of(pathOf(name)).starts_with(R"(\\.\)")) return true;
    const auto type = typeOf(name);
    return type != regular && type != not_found && type != none;
}

}  // namespace

void TextWriter::write(std::string_view text) {
    if (failed_) return;
    held_ += text;
    if (held_.size() >= blockSize) handOn();
}

Outcome TextWriter::finish(bool hasResult) {
    handOn();
    if (failed_) return Outcome::Failed;
    return hasResult ? Outcome::Written : Outcome::Nothing;
}

TextWriter& SheetParts::next() {
    if (any_) writer_.write(between_);
    any_ = true;
    return writer_;
}

void TextWriter::handOn() {
    if (!failed_) failed_ = !file_.append(std::as_bytes(std::span(held_)));
    held_.clear();
}

void writeResult(const std::optional<std::string>& name, Environment& environment,
                 const WriteResult& write) {
    if (name.value_or(standardStream) == standardStream) return writeToStandardOutput(write);
    if (isFolder(name)) {
        throw OutputError(*name + ": it is a folder, no file");
    }
    auto outcome = Outcome::Failed;
    bool inPlace = false;
    const auto content = [&](OutputFile& file) {
        outcome = write(file);
        return outcome == Outcome::Written;
    };
    if (isDevice(*name)) {
        Device device(pathOf(*name));
        inPlace = content(device) && device.flush();
    } else {
        inPlace = writeSafely(environment.files, pathOf(*name), OldRest::Cut, content);
    }
    if (!inPlace && outcome != Outcome::Nothing)
        throw OutputError(*name + ": it cannot be written");
}

bool isFolder(const std::optional<std::string>& name) {
    return name && *name != standardStream &&
           typeOf(*name) == std::filesystem::file_type::directory;
}

void requireOtherFile(const std::string& output, const std::vector<std::string>& inputs) {
    if (output == standardStream) return;
    for (const std::string& input : inputs) {
        // Where the system gives standard input a name, that may lead to a file, too.
        const std::string name = input == standardStream ? "/dev/stdin" : input;
        std::error_code error;
        if (std::filesystem::equivalent(pathOf(output), pathOf(name), error)) {
            throw UsageError(
                std::string(output).append(": it would replace what is read from ").append(input));
        }
    }
}

}  // namespace quorvel
