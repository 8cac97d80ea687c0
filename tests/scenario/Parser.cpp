#include "tests/scenario/Parser.h"

#include <algorithm>
#include <array>
#include <utility>

#include "core/CodePage.h"

namespace quorvel::scenario {

namespace {

template <typename Value, std::size_t count>
Value choice(LineReader& line, const std::array<std::pair<std::string_view, Value>, count>& words) {
    const std::string word = line.word();
    for (const auto& [name, value] : words)
        if (word == name) return value;
    line.fail(word + " is unexpected here");
}

constexpr std::array<std::pair<std::string_view, Icon>, 3> icons{
    {{"none", Icon::None}, {"critical", Icon::Critical}, {"information", Icon::Information}}};
constexpr std::array<std::pair<std::string_view, Buttons>, 3> buttonSets{
    {{"ok", Buttons::Ok}, {"ok-cancel", Buttons::OkCancel}, {"yes-no", Buttons::YesNo}}};
constexpr std::array<std::pair<std::string_view, Answer>, 4> answers{
    {{"ok", Answer::Ok}, {"cancel", Answer::Cancel}, {"yes", Answer::Yes}, {"no", Answer::No}}};
constexpr std::array<std::pair<std::string_view, PrinterState>, 3> printerStates{
    {{"ready", PrinterState::Ready}, {"none", PrinterState::None}, {"fails", PrinterState::Fails}}};
constexpr std::array<std::pair<std::string_view, bool>, 2> diskStates{
    {{"full", true}, {"ready", false}}};

bool hasButton(Buttons buttons, Answer answer) {
    switch (buttons) {
        case Buttons::Ok:
            return answer == Answer::Ok;
        case Buttons::OkCancel:
            return answer == Answer::Ok || answer == Answer::Cancel;
        case Buttons::YesNo:
            return answer == Answer::Yes || answer == Answer::No;
    }
    return false;
}

ScreenSize parseScreen(LineReader& line) {
    const std::string size = line.word();
    const std::size_t cross = size.find('x');
    ScreenSize screen;
    if (cross != std::string::npos) {
        screen.width = LineReader(line.number(), size.substr(0, cross)).integer();
        screen.height = LineReader(line.number(), size.substr(cross + 1)).integer();
    }
    if (screen.width <= 0 || screen.height <= 0)
        line.fail("a size such as 640x480 is expected instead of " + size);
    return screen;
}

std::optional<Setting> parseSetting(std::string_view keyword, LineReader& line) {
    if (keyword == "screen") return SetScreen{parseScreen(line)};
    if (keyword == "password") {
        if (line.take("empty")) return StorePassword{};
        return StorePassword{line.text()};
    }
    if (keyword == "file") {
        PlaceFile file{line.text(), {}};
        line.require("from");
        file.fixture = line.text();
        return file;
    }
    if (keyword == "printer") return SetPrinter{choice(line, printerStates)};
    if (keyword == "disk") return SetDisk{choice(line, diskStates)};
    if (keyword == "locked") return OpenElsewhere{line.text(), FileSharing::Nothing};
    if (keyword == "held") return OpenElsewhere{line.text(), FileSharing::Contents};
    if (keyword == "released") return CloseElsewhere{line.text()};
    return std::nullopt;
}

Action parseClick(LineReader& line) {
    const std::string first = line.word();
    if (line.atEnd()) return ClickControl{first};
    return ClickPoint{LineReader(line.number(), first).decimal(), line.decimal()};
}

PressKey parseKey(LineReader& line) {
    PressKey pressed{line.textComesNext() ? line.text() : line.word()};
    const bool named = pressed.key == "Enter" || pressed.key == "Escape" || pressed.key == "Tab";
    if (!named && pressed.key.size() != 1)
        line.fail(pressed.key + " is no key: Enter, Escape, Tab or a letter");
    return pressed;
}

std::optional<Action> parseAction(std::string_view keyword, LineReader& line) {
    if (keyword == "start") return Start{};
    if (keyword == "menu") return ChooseMenu{line.word()};
    if (keyword == "click") return parseClick(line);
    if (keyword == "type") return TypeText{line.text()};
    if (keyword == "key") return parseKey(line);
    if (keyword == "scroll") {
        MoveScrollBar move{line.word(), 0};
        move.position = line.integer();
        return move;
    }
    if (keyword == "close") return CloseWindow{};
    if (keyword == "session") {
        line.require("ends");
        return EndSession{};
    }
    return std::nullopt;
}

bool isDialogKeyword(std::string_view keyword) {
    return keyword == "prompt" || keyword == "message" || keyword == "open" || keyword == "save" ||
           keyword == "font" || keyword == "password";
}

Reply parseTextReply(LineReader& line) {
    line.require("->");
    Reply reply;
    reply.cancelled = line.take("cancel");
    if (!reply.cancelled) reply.text = line.text();
    return reply;
}

DialogStep parseMessage(LineReader& line) {
    DialogStep step;
    step.expected.kind = DialogKind::Message;
    step.expected.title = line.text();
    step.expected.text = line.text();
    line.require("icon");
    step.expected.icon = choice(line, icons);
    line.require("buttons");
    step.expected.buttons = choice(line, buttonSets);
    line.require("->");
    step.reply.button = choice(line, answers);
    if (!hasButton(step.expected.buttons, step.reply.button))
        line.fail("the message has no such button");
    return step;
}

/// Splits a file into lines and hangs the indented ones under their action.
class ScenarioReader {
  public:
    Scenario read(std::string_view text) {
        constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
        if (text.starts_with(byteOrderMark)) text.remove_prefix(byteOrderMark.size());
        while (!text.empty()) {
            const std::size_t end = std::min(text.find('\n'), text.size());
            readLine(text.substr(0, end));
            text.remove_prefix(std::min(end + 1, text.size()));
        }
        return std::move(scenario_);
    }

  private:
    void readLine(std::string_view source) {
        ++number_;
        while (!source.empty() && (source.back() == '\r' || source.back() == ' '))
            source.remove_suffix(1);
        const std::size_t indent = source.find_first_not_of(" \t");
        if (indent == std::string_view::npos) return;
        source.remove_prefix(indent);

        LineReader line(number_, CodePage::windows1252().fromUtf8(source));
        if (line.atEnd()) return;
        const std::string keyword = line.word();
        if (indent > 0)
            readIndented(keyword, line, source);
        else
            readStep(keyword, line, source);
        line.requireEnd();
    }

    void readIndented(const std::string& keyword, LineReader& line, std::string_view source) {
        const bool expectation = keyword == "expect";
        if (!expectation && !isDialogKeyword(keyword))
            line.fail(keyword + " is no dialog; only dialogs and expectations are indented");
        ActionStep* action =
            scenario_.steps.empty() ? nullptr : std::get_if<ActionStep>(&scenario_.steps.back());
        if (action == nullptr && expectation) return readStep(keyword, line, source);
        if (action == nullptr) line.fail("the dialog does not follow an action");
        FollowUp followUp{number_, std::string(source), {}};
        if (expectation)
            followUp.content = parseExpectation(line);
        else
            followUp.content = parseDialog(keyword, line);
        action->followUps.push_back(std::move(followUp));
    }

    void readStep(const std::string& keyword, LineReader& line, std::string_view source) {
        if (keyword == "expect") {
            scenario_.steps.push_back(
                ExpectationStep{number_, std::string(source), parseExpectation(line)});
        } else if (auto setting = parseSetting(keyword, line)) {
            scenario_.steps.push_back(
                SettingStep{number_, std::string(source), std::move(*setting)});
        } else if (auto action = parseAction(keyword, line)) {
            scenario_.steps.push_back(
                ActionStep{number_, std::string(source), std::move(*action), {}});
        } else {
            line.fail(keyword + " is no step");
        }
    }

    Scenario scenario_;
    int number_ = 0;
};

template <typename Kind>
std::optional<Kind> firstSetting(const Scenario& scenario) {
    for (const Step& step : scenario.steps) {
        if (const auto* action = std::get_if<ActionStep>(&step))
            if (std::holds_alternative<Start>(action->action)) break;
        if (const auto* setting = std::get_if<SettingStep>(&step))
            if (const auto* wanted = std::get_if<Kind>(&setting->setting)) return *wanted;
    }
    return std::nullopt;
}

}  // namespace

DialogStep parseDialog(std::string_view kind, LineReader& line) {
    DialogStep step;
    if (kind == "prompt") {
        step.expected.kind = DialogKind::Prompt;
        step.expected.title = line.text();
        step.expected.text = line.text();
        line.require("default");
        step.expected.defaultAnswer = line.text();
        step.reply = parseTextReply(line);
    } else if (kind == "message") {
        step = parseMessage(line);
    } else if (kind == "font") {
        step.expected.kind = DialogKind::Font;
        line.require("->");
        step.reply.cancelled = line.take("cancel");
        if (!step.reply.cancelled) {
            step.reply.font.name = line.text();
            step.reply.font.size = static_cast<float>(line.decimal());
        }
    } else {
        step.expected.kind = kind == "open"   ? DialogKind::OpenFile
                             : kind == "save" ? DialogKind::SaveFile
                                              : DialogKind::Password;
        step.expected.title = line.text();
        step.reply = parseTextReply(line);
    }
    return step;
}

Scenario parseScenario(std::string_view text) {
    return ScenarioReader().read(text);
}

int lineOf(const Step& step) {
    return std::visit([](const auto& content) { return content.line; }, step);
}

ScreenSize Scenario::screen() const {
    return firstSetting<SetScreen>(*this).value_or(SetScreen{defaultScreen}).size;
}

PrinterState Scenario::printer() const {
    return firstSetting<SetPrinter>(*this).value_or(SetPrinter{}).state;
}

}  // namespace quorvel::scenario
