#pragma once

#include <filesystem>
#include <optional>
#include <span>

#include "core/GradeSheet.h"
#include "core/ports/Files.h"
#include "storage/RecordFile.h"

namespace quorvel {

/// Reads a sheet from its records. A file that ends early gives empty values for what it lacks;
/// memory and time follow the bytes that are there, never the counts that they claim. What stands
/// behind the last record is not read. The reader then knows what is damaged. Derived figures are
/// not computed.
GradeSheet readSheet(RecordReader& reader);

/// The same for bytes in memory.
GradeSheet decodeSheet(std::span<const std::byte> bytes);

struct SheetReading {
    GradeSheet sheet;  // empty where there is a problem
    FileProblem problem = FileProblem::None;
};
/// Reads a sheet from its file, patiently. One that cannot be read to its end is a problem; one
/// that is shorter than its counts claim is none.
SheetReading readSheet(Files& files, const std::filesystem::path& file);

/// How far a file is the whole sheet that its counts claim.
struct SheetCheck {
    std::optional<int> studentCount;     // nothing where the count itself is damaged
    std::optional<int> assignmentCount;  // likewise
    std::string sheetTitle;
    /// Nothing where a count is damaged.
    std::optional<std::uint64_t> recordsWanted;
    /// A shortened last record counts, and so does what stands behind the sheet.
    std::uint64_t recordsPresent = 0;
    std::optional<DamagedRecord> firstDamage;
};
/// Looks at every record that the file has, never at those that its counts only claim, and keeps
/// none of them. The reader then knows whether the reading broke off.
SheetCheck checkSheet(RecordReader& reader);

/// Puts a sheet's records into the stream.
void writeSheet(RecordStream& stream, const GradeSheet& sheet);

/// Writes the whole sheet into `file`; see writeRecords. False when the file was left as it was.
bool writeSheet(Files& files, const std::filesystem::path& file, const GradeSheet& sheet);

}  // namespace quorvel
