#pragma once

#include <string_view>

#include "core/CodePage.h"
#include "qrv/ImportedSheet.h"

namespace quorvel {

/// The sheet that a CSV text in UTF-8 describes, as "export" or a spreadsheet writes it. Lines keep
/// their order; lines and columns without any content are left out.
ImportedSheet sheetFromCsv(std::string_view text, const CodePage& codePage);

}  // namespace quorvel
