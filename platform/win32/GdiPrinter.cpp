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

}  // namespace

PageSize GdiPrinter::startJob(std::string_view title, Orientation orientation) {
    const std::wstring name = defaultPrinterName();
    if (name.empty()) throw PrinterError("There is no default printer.");
    printer_ = openPrinter(name, orientation);
    require(printer_ != nullptr);

    const std::wstring jobTitle = toWide(title, codePage_);
    DOCINFOW job{};
    job.cbSize = sizeof job;
    job.lpszDocName = jobTitle.c_str();
    require(::StartDocW(printer_.get(), &job) > 0);
    beginPage();
    return {::GetDeviceCaps(printer_.get(), HORZRES), ::GetDeviceCaps(printer_.get(), VERTRES)};
}

void GdiPrinter::startPage() {
    endPage();
    beginPage();
}

void GdiPrinter::endJob() {
    endPage();
    require(::EndDoc(printer_.get()) > 0);
    release();
}

void GdiPrinter::cancelJob() noexcept {
    if (printer_) ::AbortDoc(printer_.get());
    release();
}

FontMeasure GdiPrinter::selectFont(const PrintFont& font, int characterWidth) {
    UniqueFont created = createPrintFont(font, ::GetDeviceCaps(printer_.get(), LOGPIXELSY),
                                         characterWidth, codePage_);
    require(created != nullptr);
    selection_ = SelectedObject();
    font_ = std::move(created);
    selectCurrentFont();

    TEXTMETRICW metrics{};
    require(::GetTextMetricsW(printer_.get(), &metrics) != 0);
    characterWidth_ = static_cast<int>(metrics.tmAveCharWidth);
    // The bit tells the opposite of its name.
    isFixedPitch_ = (metrics.tmPitchAndFamily & TMPF_FIXED_PITCH) == 0;
    return {characterWidth_, static_cast<int>(metrics.tmHeight + metrics.tmExternalLeading)};
}

int GdiPrinter::textWidth(std::string_view text) {
    if (isFixedPitch_) return characterWidth_ * static_cast<int>(text.size());
    const std::wstring wide = toWide(text, codePage_);
    SIZE size{};
    require(::GetTextExtentPoint32W(printer_.get(), wide.c_str(), static_cast<int>(wide.size()),
                                    &size) != 0);
    return static_cast<int>(size.cx);
}

void GdiPrinter::printText(int left, int top, std::string_view text) {
    if (text.empty()) return;
    const std::wstring wide = toWide(text, codePage_);
    // The printer's own advances are not quite those that were measured: columns would drift apart,
    // and narrowed characters run into what stands behind them.
    const std::vector<int> advances = advancesOf(wide);
    require(::ExtTextOutW(printer_.get(), left, top, 0, nullptr, wide.c_str(),
                          static_cast<UINT>(wide.size()), advances.data()) != 0);
}

std::vector<int> GdiPrinter::advancesOf(const std::wstring& text) const {
    if (isFixedPitch_) return std::vector<int>(text.size(), characterWidth_);
    std::vector<int> advances(text.size());
    SIZE size{};
    require(::GetTextExtentExPointW(printer_.get(), text.c_str(), static_cast<int>(text.size()), 0,
                                    nullptr, advances.data(), &size) != 0);
    std::adjacent_difference(advances.begin(), advances.end(), advances.begin());
    return advances;
}

void GdiPrinter::beginPage() {
    require(::StartPage(printer_.get()) > 0);
    ::SetBkMode(printer_.get(), TRANSPARENT);
    ::SetTextAlign(printer_.get(), TA_LEFT | TA_TOP);
    if (font_) selectCurrentFont();
}

void GdiPrinter::endPage() {
    require(::EndPage(printer_.get()) > 0);
}

/// Some drivers forget the selected font where a page starts.
void GdiPrinter::selectCurrentFont() {
    selection_ = SelectedObject();
    selection_ = SelectedObject(printer_.get(), font_.get());
}

void GdiPrinter::require(bool succeeded) const {
    if (succeeded) return;
    const std::string reason = systemErrorText(::GetLastError(), codePage_);
    throw PrinterError(reason.empty() ? "The printer failed." : "The printer failed: " + reason);
}

void GdiPrinter::release() noexcept {
    selection_ = SelectedObject();
    font_.reset();
    printer_.reset();
}

}  // namespace quorvel
