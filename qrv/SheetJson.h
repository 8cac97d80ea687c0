#pragma once

#include <string>
#include <string_view>

#include "core/CodePage.h"
#include "core/GradeSheet.h"
#include "qrv/ImportedSheet.h"
#include "qrv/Output.h"

namespace quorvel {

/// Each writes one JSON object on a line of its own; `name` is that of the sheet's file.
void writeFiguresJson(const std::string& name, const GradeSheet& sheet, const CodePage& codePage,
                      TextWriter& writer);
/// All that a sheet holds. A list that the sheet never had is null. A score is null, a text, or a
/// number where the sheet holds a whole one as such.
void writeSheetJson(const std::string& name, const GradeSheet& sheet, const CodePage& codePage,
                    TextWriter& writer);

/// Whether a text that a sheet is to be made of is JSON and not CSV.
bool isJson(std::string_view text);

/// The sheet that such an object describes.
ImportedSheet sheetFromJson(std::string_view text, const CodePage& codePage);

}  // namespace quorvel
