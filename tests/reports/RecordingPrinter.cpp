#include "tests/reports/RecordingPrinter.h"

#include "core/Errors.h"

namespace quorvel {

Paper RecordingPrinter::startJob(const PrintJobSettings& settings) {
    count();
    if (calledOff) throw PrintingCalledOff();
    orientation = settings.orientation;
    oneSided = settings.oneSided;
    calls.push_back("start " + std::string(settings.title));
    pageNumber_ = 1;
    return paper;
}

void RecordingPrinter::startPage() {
    count();
    calls.emplace_back("page");
    ++pageNumber_;
}

void RecordingPrinter::endJob() {
    count();
    calls.emplace_back("end");
}

FontMeasure RecordingPrinter::selectFont(const PrintFont& font, int characterWidth) {
    count();
    selections.emplace_back(font, characterWidth);
    characterWidth_ = characterWidth > 0 ? characterWidth : ownCharacterWidth;
    return {characterWidth_, lineHeight};
}

int RecordingPrinter::textWidth(std::string_view text) {
    count();
    int width = 0;
    for (const char letter : text) {
        const bool isCapital = letter >= 'A' && letter <= 'Z';
        width += isProportional && isCapital ? characterWidth_ * 3 / 2 : characterWidth_;
    }
    return width;
}

void RecordingPrinter::printText(int left, int top, std::string_view text) {
    count();
    const int right = left + textWidth(text);
    pieces.push_back({pageNumber_, left, top, right, characterWidth_, std::string(text)});
}

void RecordingPrinter::count() {
    if (++callCount_ == failingCall) throw PrinterError("The printer is on fire.");
}

}  // namespace quorvel
