#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string_view>
#include <vector>

#include "core/ports/Files.h"

namespace quorvel {

/// What is read or written at a time: few calls, and small enough to stay near the processor.
inline constexpr std::size_t blockSize = std::size_t{256} * 1024;

/// Tries again, for about a second, what fails otherwise than by a missing file: a virus scanner or
/// a backup may hold a file for a moment. The problem of the last attempt.
FileProblem patiently(Files& files, const std::function<FileProblem()>& attempt);

struct ReadBytes {
    Bytes bytes;  // none where there is a problem
    FileProblem problem = FileProblem::None;
};
/// The whole file, or its first `limit` bytes, read patiently.
ReadBytes readBytes(Files& files, const std::filesystem::path& file,
                    std::uint64_t limit = UINT64_MAX);

/// Copies what is left of `from` behind what was written to `to`; false when that failed.
bool copyRest(InputFile& from, OutputFile& to);

/// The files of a folder whose names end with `ending`, such as ".qrv", in any case; in the order
/// of their names.
std::vector<std::filesystem::path> filesEndingWith(Files& files,
                                                   const std::filesystem::path& folder,
                                                   std::string_view ending);

}  // namespace quorvel
