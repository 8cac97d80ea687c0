#include "platform/win32/PrinterDevice.h"

#include <cstddef>
#include <vector>

#include <windows.h>
#include <winspool.h>

namespace quorvel {

namespace {

class PrinterHandle {
  public:
    explicit PrinterHandle(const std::wstring& name) {
        // Windows' function takes the name as a text that it could change, and does not.
        if (::OpenPrinterW(const_cast<wchar_t*>(name.c_str()), &handle_, nullptr) == 0)
            handle_ = nullptr;
    }
    PrinterHandle(const PrinterHandle&) = delete;
    PrinterHandle& operator=(const PrinterHandle&) = delete;
    ~PrinterHandle() {
        if (handle_ != nullptr) ::ClosePrinter(handle_);
    }

    HANDLE get() const { return handle_; }

  private:
    HANDLE handle_ = nullptr;
};

/// The printer's settings, a DEVMODEW with what the driver keeps behind it; empty where the driver
/// gives none.
std::vector<std::byte> settingsOf(const std::wstring& name, const PrintJobSettings& job) {
    const PrinterHandle printer(name);
    if (printer.get() == nullptr) return {};
    auto* const device = const_cast<wchar_t*>(name.c_str());
    const LONG size = ::DocumentPropertiesW(nullptr, printer.get(), device, nullptr, nullptr, 0);
    if (size < static_cast<LONG>(sizeof(DEVMODEW))) return {};
    std::vector<std::byte> settings(static_cast<std::size_t>(size));
    auto* const mode = reinterpret_cast<DEVMODEW*>(settings.data());
    if (::DocumentPropertiesW(nullptr, printer.get(), device, mode, nullptr, DM_OUT_BUFFER) != IDOK)
        return {};
    mode->dmFields |= DM_ORIENTATION;
    mode->dmOrientation =
        job.orientation == Orientation::Landscape ? DMORIENT_LANDSCAPE : DMORIENT_PORTRAIT;
    if (job.oneSided) {
        mode->dmFields |= DM_DUPLEX;
        mode->dmDuplex = DMDUP_SIMPLEX;
    }
    // The driver brings what depends on the orientation into line.
    if (::DocumentPropertiesW(nullptr, printer.get(), device, mode, mode,
                              DM_IN_BUFFER | DM_OUT_BUFFER) != IDOK)
        return {};
    return settings;
}

}  // namespace

std::wstring defaultPrinterName() {
    DWORD length = 0;
    ::GetDefaultPrinterW(nullptr, &length);
    std::wstring name(length, L'\0');
    if (length == 0 || ::GetDefaultPrinterW(name.data(), &length) == 0) return {};
    name.resize(length - 1);
    return name;
}

UniqueDC openPrinter(const std::wstring& name, const PrintJobSettings& job) {
    const std::vector<std::byte> settings = settingsOf(name, job);
    const auto* const mode =
        settings.empty() ? nullptr : reinterpret_cast<const DEVMODEW*>(settings.data());
    return UniqueDC(::CreateDCW(L"WINSPOOL", name.c_str(), nullptr, mode));
}

}  // namespace quorvel
