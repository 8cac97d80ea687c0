#pragma once

#include <filesystem>
#include <span>

#include "core/GradeSheet.h"
#include "core/ports/Files.h"

namespace quorvel {

/// The part of a sheet file that a sheet is read from: at most what its counts claim, whatever
/// stands behind it. Empty when the file cannot be read.
Bytes readSheetBytes(Files& files, const std::filesystem::path& file);

/// The sheet that a file's bytes hold. A file that ends early gives empty values for what it lacks;
/// memory and time follow the bytes that are there, never the counts that they claim. Derived
/// figures are not computed.
GradeSheet decodeSheet(std::span<const std::byte> bytes);
/// The same into a sheet that is open: its content is replaced as a whole.
void decodeSheet(std::span<const std::byte> bytes, GradeSheet& sheet);

/// Writes the whole sheet into `file`; see writeRecords. False when the file was left as it was.
bool writeSheet(Files& files, const std::filesystem::path& file, const GradeSheet& sheet);

}  // namespace quorvel
