#include "platform/win32/GdiPrinter.h"

#include <cmath>
#include <cstddef>
#include <numeric>
#include <vector>

#include "core/Errors.h"
#include "platform/win32/PrinterDevice.h"
#include "platform/win32/Texts.h"

namespace quorvel {

namespace {

constexpr double pointsPerInch = 72.0;
/// Should it be missing, only another font of fixed pitch can take its place.
constexpr std::string_view fixedPitchFont = "Courier New";

UniqueFont createPrintFont(const PrintFont& font, int dotsPerInch, int characterWidth,
                           const CodePage& codePage) {
    const auto height =
        static_cast<int>(std::lround(static_cast<double>(font.size) * dotsPerInch / pointsPerInch));
    const DWORD pitch = font.name == fixedPitchFont ? FIXED_PITCH | FF_MODERN : DEFAULT_PITCH;
    return UniqueFont(::CreateFontW(-height, characterWidth, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE,
                                    DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS,
                                    DEFAULT_QUALITY, pitch, toWide(font.name, codePage).c_str()));
}

Paper paperOf(HDC printer) {
    const auto value = [printer](int index) { return ::GetDeviceCaps(printer, index); };
    const PageSize printable{value(HORZRES), value(VERTRES)};
    const int left = value(PHYSICALOFFSETX);
    const int top = value(PHYSICALOFFSETY);
    return {.printable = printable,
            .unprintable = {.left = left,
                            .top = top,
                            .right = value(PHYSICALWIDTH) - left - printable.width,
                            .bottom = value(PHYSICALHEIGHT) - top - printable.height},
            .inch = {value(LOGPIXELSX), value(LOGPIXELSY)}};
}

}  // namespace

template <typename Function>
void GdiPrinter::require(const Function& succeeds) const {
    // A failure does not always leave a reason: what an earlier one left is not to be taken for it.
    ::SetLastError(ERROR_SUCCESS);
    if (succeeds()) return;
    const DWORD reason = ::GetLastError();
    if (reason == ERROR_CANCELLED || reason == ERROR_PRINT_CANCELLED) throw PrintingCalledOff();
    const std::string text =
        reason == ERROR_SUCCESS ? std::string() : systemErrorText(reason, codePage_);
    throw PrinterError(text.empty() ? "The printer failed and gave no reason."
                                    : "The printer failed: " + text);
}

Paper GdiPrinter::startJob(const PrintJobSettings& settings) {
    const std::wstring name = defaultPrinterName();
    if (name.empty()) throw PrinterError("There is no default printer.");
    require([&] {
        printer_ = openPrinter(name, settings);
        return printer_ != nullptr;
    });

    const std::wstring jobTitle = toWide(settings.title, codePage_);
    DOCINFOW job{};
    job.cbSize = sizeof job;
    job.lpszDocName = jobTitle.c_str();
    require([&] { return ::StartDocW(printer_.get(), &job) > 0; });
    beginPage();
    return paperOf(printer_.get());
}

void GdiPrinter::startPage() {
    endPage();
    beginPage();
}

void GdiPrinter::endJob() {
    endPage();
    require([this] { return ::EndDoc(printer_.get()) > 0; });
    release();
}

void GdiPrinter::cancelJob() noexcept {
    if (printer_) ::AbortDoc(printer_.get());
    release();
}

FontMeasure GdiPrinter::selectFont(const PrintFont& font, int characterWidth) {
    UniqueFont created;
    require([&] {
        created = createPrintFont(font, ::GetDeviceCaps(printer_.get(), LOGPIXELSY), characterWidth,
                                  codePage_);
        return created != nullptr;
    });
    selection_ = SelectedObject();
    font_ = std::move(created);
    selectCurrentFont();

    TEXTMETRICW metrics{};
    require([&] { return ::GetTextMetricsW(printer_.get(), &metrics) != 0; });
    characterWidth_ = static_cast<int>(metrics.tmAveCharWidth);
    // The bit tells the opposite of its name.
    isFixedPitch_ = (metrics.tmPitchAndFamily & TMPF_FIXED_PITCH) == 0;
    return {characterWidth_, static_cast<int>(metrics.tmHeight + metrics.tmExternalLeading)};
}

int GdiPrinter::textWidth(std::string_view text) {
    if (isFixedPitch_) return characterWidth_ * static_cast<int>(text.size());
    const std::wstring wide = toWide(text, codePage_);
    SIZE size{};
    require([&] {
        return ::GetTextExtentPoint32W(printer_.get(), wide.c_str(), static_cast<int>(wide.size()),
                                       &size) != 0;
    });
    return static_cast<int>(size.cx);
}

void GdiPrinter::printText(int left, int top, std::string_view text) {
    if (text.empty()) return;
    const std::wstring wide = toWide(text, codePage_);
    // The printer's own advances are not quite those that were measured: columns would drift apart,
    // and narrowed characters run into what stands behind them.
    const std::vector<int> advances = advancesOf(wide);
    require([&] {
        return ::ExtTextOutW(printer_.get(), left, top, 0, nullptr, wide.c_str(),
                             static_cast<UINT>(wide.size()), advances.data()) != 0;
    });
}

std::vector<int> GdiPrinter::advancesOf(const std::wstring& text) const {
    if (isFixedPitch_) return std::vector<int>(text.size(), characterWidth_);
    std::vector<int> advances(text.size());
    SIZE size{};
    require([&] {
        return ::GetTextExtentExPointW(printer_.get(), text.c_str(), static_cast<int>(text.size()),
                                       0, nullptr, advances.data(), &size) != 0;
    });
    std::adjacent_difference(advances.begin(), advances.end(), advances.begin());
    return advances;
}

void GdiPrinter::beginPage() {
    require([this] { return ::StartPage(printer_.get()) > 0; });
    ::SetBkMode(printer_.get(), TRANSPARENT);
    ::SetTextAlign(printer_.get(), TA_LEFT | TA_TOP);
    if (font_) selectCurrentFont();
}

void GdiPrinter::endPage() {
    require([this] { return ::EndPage(printer_.get()) > 0; });
}

/// Some drivers forget the selected font where a page starts.
void GdiPrinter::selectCurrentFont() {
    selection_ = SelectedObject();
    selection_ = SelectedObject(printer_.get(), font_.get());
}

void GdiPrinter::release() noexcept {
    selection_ = SelectedObject();
    font_.reset();
    printer_.reset();
}

}  // namespace quorvel
