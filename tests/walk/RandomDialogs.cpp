#include "tests/walk/RandomDialogs.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "core/Numbers.h"
#include "core/Paths.h"
#include "storage/Reading.h"
#include "storage/RecordFile.h"
#include "tests/scenario/Texts.h"

namespace quorvel::walk {

namespace {

using scenario::Dialog;
using scenario::DialogKind;

constexpr std::size_t longestTyped = 300;
constexpr std::string_view cancel = "cancel";

/// True for questions that want a number, so that most answers get somewhere.
bool wantsNumber(std::string_view question) {
    for (const std::string_view word : {"number", "value", "score"})
        if (question.find(word) != std::string_view::npos) return true;
    return false;
}

std::string inQuotes(std::string_view text) {
    return scenario::quoted(text, {});
}

}  // namespace

std::string RandomDialogs::typedNumber() {
    constexpr std::array<std::string_view, 22> oddities{
        "0", "-1", "-7", "2.5", "0.4", "0.5", "9.25", "7.4999", "12.5",  "999.4", "1000",
        "E", "e",  " e", "abc", ".",   "-",   "1e5",  "  3 ",   "32767", "40000", "+2"};
    if (random_.chance(60)) return std::to_string(random_.between(1, 20));
    if (random_.chance(20)) return std::to_string(random_.between(-50, 1100));
    if (random_.chance(20))
        return std::to_string(random_.below(200)) + "." + std::to_string(random_.below(1000));
    if (random_.chance(10))
        return std::string(static_cast<std::size_t>(random_.between(1, longestTyped)),
                           static_cast<char>('0' + random_.below(10)));
    return std::string(random_.oneOf(oddities));
}

std::string RandomDialogs::typedText() {
    // Letters, blanks, punctuation and, in the upper half of the page, accents.
    constexpr std::string_view characters =
        "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ  ,.-'\"\\"
        "\xC0\xC4\xC9\xD1\xD6\xDC\xDF\xE0\xE4\xE9\xF1\xF6\xFC\xFF\x8A\x9A\x80";
    if (random_.chance(3)) return "nc";
    if (random_.chance(2)) return std::string(longestTyped, random_.oneOf(characters));
    std::string text;
    for (int length = random_.between(1, random_.chance(20) ? 60 : 12); length > 0; --length)
        text += random_.oneOf(characters);
    return text;
}

std::string RandomDialogs::prompt(const Prompt& prompt) {
    const std::string_view defaultAnswer = prompt.defaultAnswer.substr(0, prompt.longestAnswer);
    std::string answer;
    if (random_.chance(12))
        answer.clear();
    else if (random_.chance(10))
        answer = defaultAnswer;
    else if (prompt.question.starts_with("What percentage"))
        answer = decimalText(leadingNumber(defaultAnswer) + random_.between(-3, 2));
    else if (random_.chance(wantsNumber(prompt.question) ? 95 : 10))
        answer = typedNumber();
    else
        answer = typedText();
    answer.resize(std::min(answer.size(), prompt.longestAnswer));

    Dialog dialog;
    dialog.kind = DialogKind::Prompt;
    dialog.title = prompt.title;
    dialog.text = prompt.question;
    dialog.defaultAnswer = defaultAnswer;
    note(dialog, answer.empty() && random_.chance(50) ? std::string(cancel) : inQuotes(answer));
    return answer;
}

Answer RandomDialogs::message(const Message& message) {
    Answer answer = Answer::Ok;
    if (message.buttons == Buttons::OkCancel)
        answer = random_.chance(70) ? Answer::Ok : Answer::Cancel;
    if (message.buttons == Buttons::YesNo) answer = random_.chance(65) ? Answer::Yes : Answer::No;

    Dialog dialog;
    dialog.kind = DialogKind::Message;
    dialog.title = message.title;
    dialog.text = message.text;
    dialog.icon = message.icon;
    dialog.buttons = message.buttons;
    constexpr std::array<std::string_view, 4> words{"ok", cancel, "yes", "no"};
    note(dialog, words[static_cast<std::size_t>(answer)]);
    return answer;
}

std::optional<std::filesystem::path> RandomDialogs::openFile(std::string_view title,
                                                             const std::filesystem::path& folder) {
    const auto sheets = filesEndingWith(files_, folder, ".qrv");
    std::optional<std::filesystem::path> chosen;
    if (!sheets.empty() && random_.chance(80)) chosen = random_.oneOf(sheets);
    noteFile(DialogKind::OpenFile, title, chosen);
    return chosen;
}

std::optional<std::filesystem::path> RandomDialogs::saveFile(std::string_view title,
                                                             const std::filesystem::path& folder) {
    constexpr std::array<const char8_t*, 4> names{u8"a.qrv", u8"Algebra I - Period 3.qrv",
                                                  u8"b.qrv", u8"\u00C9t\u00E9.qrv"};
    std::optional<std::filesystem::path> chosen;
    if (random_.chance(80)) chosen = folder / std::filesystem::path(random_.oneOf(names));
    noteFile(DialogKind::SaveFile, title, chosen);
    return chosen;
}

std::optional<PrintFont> RandomDialogs::chooseFont(const PrintFont&) {
    constexpr std::array<std::string_view, 3> faces{"Arial", "Courier New", "Times New Roman"};
    constexpr std::array<float, 4> sizes{6, 9.75F, 10, 24};
    std::optional<PrintFont> chosen;
    if (random_.chance(70))
        chosen = PrintFont{std::string(random_.oneOf(faces)), random_.oneOf(sizes)};
    Dialog dialog;
    dialog.kind = DialogKind::Font;
    note(dialog,
         chosen ? inQuotes(chosen->name) + " " + decimalText(chosen->size) : std::string(cancel));
    return chosen;
}

bool RandomDialogs::passwordWindow(std::string_view caption, const SubmitPassword& submit) {
    std::string shownCaption(caption);
    const SetCaption setCaption = [&](std::string_view text) { shownCaption = text; };
    PasswordStep step = PasswordStep::GoOn;
    while (step == PasswordStep::GoOn) {
        const std::optional<std::string> entry = passwordFor(shownCaption);
        Dialog dialog;
        dialog.kind = DialogKind::Password;
        dialog.title = shownCaption;
        note(dialog, entry ? inQuotes(*entry) : std::string(cancel));
        if (!entry) return false;
        step = submit(*entry, setCaption);
    }
    return true;
}

std::optional<std::string> RandomDialogs::passwordFor(std::string_view caption) {
    if (random_.chance(4)) return std::nullopt;
    if (caption.starts_with("Confirm")) {
        if (random_.chance(80)) return lastPassword_;
    } else if (!caption.starts_with("Enter New")) {
        if (random_.chance(80)) return storedPassword();
    }
    // An empty one now and then, so that the lock goes away again.
    lastPassword_ = random_.chance(50) ? std::string() : typedText();
    return lastPassword_;
}

std::string RandomDialogs::storedPassword() {
    const ReadBytes record = readBytes(files_, passwordFile_, recordSize);
    return textOf(RecordReader(record.bytes).taggedValue());
}

void RandomDialogs::note(const Dialog& dialog, std::string_view reply) {
    if (!log_.isKept()) return;
    log_.indented(scenario::described(dialog, {}) + " -> " + std::string(reply));
}

void RandomDialogs::noteFile(DialogKind kind, std::string_view title,
                             const std::optional<std::filesystem::path>& chosen) {
    Dialog dialog;
    dialog.kind = kind;
    dialog.title = title;
    if (chosen) fileWasChosen = true;
    note(dialog, chosen ? inQuotes(pathText(chosen->lexically_relative(programFolder_),
                                            CodePage::windows1252()))
                        : std::string(cancel));
}

}  // namespace quorvel::walk
