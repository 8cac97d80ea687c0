#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "core/GradeSheet.h"
#include "qrv/ImportedSheet.h"

namespace quorvel {

/// The sheet as "qrv export" writes it.
std::string csvOf(const GradeSheet& sheet, bool forSpreadsheet = false);
std::string jsonOf(const GradeSheet& sheet);

/// What "qrv import" makes of a file.
ImportedSheet importedFrom(std::string_view file);

/// Each remark as "place: reason: text", on lines of their own.
std::string textOf(const Remarks& remarks);

/// Every text and score of a sheet as the window shows them, and its counts.
std::string shownBy(const GradeSheet& sheet);

}  // namespace quorvel
