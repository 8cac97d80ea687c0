#pragma once

#include <filesystem>
#include <functional>

#include "core/ports/Files.h"

namespace quorvel {

/// What becomes of the bytes that an older and longer file has behind the new content.
enum class OldRest { Kept, Cut };

/// Writes a file's new content; false when it could not be written. Called once.
using WriteContent = std::function<bool(OutputFile&)>;

/// Puts new content into `file` so that at any moment, crashes included, it holds either its old
/// bytes or the new ones. False when it failed; the file is then as it was.
///
/// The new content grows in a file beside it that has the old one's access rights and then takes
/// its place. Where none can be made there, or where it may not take that place, the file itself is
/// written over, and put back as far as the disk allows when that fails. The file beside it goes
/// once the content is safe in the other; what a crash left of one goes with the next success,
/// unless somebody has it open. A file that is a link stays one.
bool writeSafely(Files& files, const std::filesystem::path& file, OldRest rest,
                 const WriteContent& content);

}  // namespace quorvel
