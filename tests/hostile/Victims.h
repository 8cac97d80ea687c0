#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <unordered_set>
#include <vector>

#include "core/GradeSheet.h"
#include "core/ports/Files.h"

namespace quorvel::hostile {

using Attempt = std::function<void(std::span<const std::byte>)>;

/// A whole file as the program writes it, to be damaged, and what reads it then.
struct Victim {
    std::string name;
    Bytes bytes;
    Attempt attempt;
};

/// A sheet of 40 students and 30 assignments, every settings file, the password file.
std::vector<Victim> victims();

/// What the attempts took at most.
struct Toll {
    double seconds = 0;
    /// Beyond the size of the file.
    std::size_t bytes = 0;
};

/// Beyond a file's size no attempt may take more memory.
inline constexpr std::size_t mostFurtherBytes = std::size_t{64} * 1024 * 1024;

/// Lets a damaged file be read. Throws fuzz::Broken where a promise is not kept.
void attempt(const Attempt& attempt, std::span<const std::byte> bytes, Toll& toll);

/// Reads the first `step`, 2 x `step`, ... bytes, and nothing. The number of attempts.
std::uint64_t tryLengths(const Victim& victim, std::size_t step, Toll& toll);
/// Changes bit 0, `step`, 2 x `step`, ..., one at a time. The number of attempts.
std::uint64_t tryBits(const Victim& victim, std::size_t step, Toll& toll);
/// Puts every `step`-th of all numbers of 16 bits at byte `offset`. The number of attempts.
std::uint64_t tryNumbers(const Victim& victim, std::size_t offset, std::size_t step, Toll& toll);

}  // namespace quorvel::hostile
