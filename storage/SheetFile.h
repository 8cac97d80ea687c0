#pragma once

#include <filesystem>
#include <span>

#include "core/GradeSheet.h"
#include "core/ports/Files.h"

namespace quorvel {

/// The sheet that a file's bytes hold. A file that ends early gives empty values for what it lacks;
/// memory and time follow the bytes that are there, never the counts that they claim. Derived
/// figures are not computed.
GradeSheet decodeSheet(std::span<const std::byte> bytes);

/// Reads a sheet from its file into a sheet that is open, whose content is replaced as a whole. A
/// file that cannot be read gives empty values like one without bytes. What stands behind the last
/// record is not read.
void readSheet(Files& files, const std::filesystem::path& file, GradeSheet& sheet);

/// Writes the whole sheet into `file`; see writeRecords. False when the file was left as it was.
bool writeSheet(Files& files, const std::filesystem::path& file, const GradeSheet& sheet);

}  // namespace quorvel
