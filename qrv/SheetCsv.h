#pragma once

#include "core/CodePage.h"
#include "core/GradeSheet.h"
#include "qrv/Output.h"

namespace quorvel {

/// The sheet as CSV in UTF-8, row by row. `forSpreadsheet` marks it as UTF-8 and keeps texts from
/// being computed as formulas.
void writeSheetCsv(const GradeSheet& sheet, const CodePage& codePage, bool forSpreadsheet,
                   TextWriter& writer);

}  // namespace quorvel
