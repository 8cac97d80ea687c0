#pragma once

#include <string>
#include <vector>

#include "core/CodePage.h"
#include "core/ports/Printer.h"
#include "platform/win32/Handles.h"

namespace quorvel {

/// The system's default printer, drawn on through GDI. Units are the printer's dots.
class GdiPrinter final : public Printer {
  public:
    /// `codePage` must outlive the printer.
    explicit GdiPrinter(const CodePage& codePage) : codePage_(codePage) {}

    Paper startJob(const PrintJobSettings& settings) override;
    void startPage() override;
    void endJob() override;
    void cancelJob() noexcept override;
    FontMeasure selectFont(const PrintFont& font, int characterWidth = 0) override;
    int textWidth(std::string_view text) override;
    void printText(int left, int top, std::string_view text) override;

  private:
    /// The dots from each character of `text` to the next in the selected font.
    std::vector<int> advancesOf(const std::wstring& text) const;
    void beginPage();
    void endPage();
    void selectCurrentFont();
    /// Runs one of Windows' functions. Throws PrinterError with Windows' reason when it is false,
    /// and PrintingCalledOff where the reason is that the user cancelled.
    template <typename Function>
    void require(const Function& succeeds) const;
    void release() noexcept;

    const CodePage& codePage_;
    UniqueDC printer_;
    UniqueFont font_;
    SelectedObject selection_;
    int characterWidth_ = 0;
    bool isFixedPitch_ = false;
};

}  // namespace quorvel
