#pragma once

#include <string>

#include "core/ports/Printer.h"
#include "platform/win32/Handles.h"

namespace quorvel {

/// The name of the system's default printer; empty when there is none.
std::wstring defaultPrinterName();

/// A context to draw on the named printer; none when it cannot be reached (see GetLastError).
UniqueDC openPrinter(const std::wstring& name, const PrintJobSettings& job);

}  // namespace quorvel
