#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "core/ports/Files.h"
#include "qrv/Environment.h"

namespace quorvel {

/// What became of a result.
enum class Outcome { Written, Failed, Nothing };

/// Text on its way into a file, block by block.
class TextWriter {
  public:
    /// `file` must outlive the writer.
    explicit TextWriter(OutputFile& file) : file_(file) {}

    void write(std::string_view text);
    /// Hands on what is still held. Without a result there was nothing to write.
    Outcome finish(bool hasResult = true);
    /// True once something could not be written; what follows is dropped.
    bool failed() const { return failed_; }

  private:
    void handOn();

    OutputFile& file_;
    std::string held_;
    bool failed_ = false;
};

/// An output that each sheet has a part of.
class SheetParts {
  public:
    /// `between` is written between two parts. `writer` must outlive this.
    SheetParts(TextWriter& writer, std::string_view between) : writer_(writer), between_(between) {}

    /// Where the next part goes.
    TextWriter& next();
    bool any() const { return any_; }

  private:
    TextWriter& writer_;
    std::string_view between_;
    bool any_ = false;
};

/// Writes a result. Called once.
using WriteResult = std::function<Outcome(OutputFile&)>;

/// Writes a result to `name`, "-" or nothing being standard output. A file takes it as a whole or
/// stays as it was, also where there is nothing to write; standard output and a device take it as
/// it comes. A reader of standard output that has seen enough is no failure. Throws OutputError.
void writeResult(const std::optional<std::string>& name, Environment& environment,
                 const WriteResult& write);

/// Whether the output is a folder that files are to be put into.
bool isFolder(const std::optional<std::string>& name);

/// Throws UsageError where the output is one of the files to be read, by whatever name or link.
void requireOtherFile(const std::string& output, const std::vector<std::string>& inputs);

}  // namespace quorvel
