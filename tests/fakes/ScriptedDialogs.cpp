#include "tests/fakes/ScriptedDialogs.h"

#include <stdexcept>
#include <utility>

#include "core/Numbers.h"

#include <gtest/gtest.h>

namespace quorvel {

namespace {

std::string inQuotes(std::string_view text) {
    return '"' + std::string(text) + '"';
}

std::string describe(const Prompt& prompt) {
    return "prompt " + inQuotes(prompt.title) + " " + inQuotes(prompt.question) + " default " +
           inQuotes(prompt.defaultAnswer);
}

std::string describe(const Message& message) {
    constexpr const char* icons[] = {"none", "critical", "information"};
    constexpr const char* buttons[] = {"ok", "ok-cancel", "yes-no"};
    return "message " + inQuotes(message.title) + " " + inQuotes(message.text) + " icon " +
           icons[static_cast<int>(message.icon)] + " buttons " +
           buttons[static_cast<int>(message.buttons)];
}

std::string describeFile(std::string_view kind, std::string_view title,
                         const std::filesystem::path& startFolder) {
    return std::string(kind) + " " + inQuotes(title) + " in " + inQuotes(startFolder.string());
}

std::string describe(const PrintFont& current) {
    return "font " + inQuotes(current.name) + " " + decimalText(current.size);
}

std::string describePassword(std::string_view caption) {
    return "password " + inQuotes(caption);
}

}  // namespace

ScriptedDialogs::~ScriptedDialogs() {
    for (const Step& step : steps_) ADD_FAILURE() << "never came: " << step.dialog;
}

ScriptedDialogs& ScriptedDialogs::expectPrompt(std::string_view title, std::string_view question,
                                               std::string_view defaultAnswer,
                                               std::string_view answer) {
    return expect(
        describe(Prompt{.title = title, .question = question, .defaultAnswer = defaultAnswer}),
        std::string(answer));
}

ScriptedDialogs& ScriptedDialogs::expectMessage(std::string_view title, std::string_view text,
                                                Icon icon, Buttons buttons, Answer answer) {
    return expect(describe(Message{.text = text, .title = title, .icon = icon, .buttons = buttons}),
                  answer);
}

ScriptedDialogs& ScriptedDialogs::expectMessage(std::string_view title, std::string_view text) {
    return expectMessage(title, text, Icon::None, Buttons::Ok, Answer::Ok);
}

ScriptedDialogs& ScriptedDialogs::expectOpenFile(
    std::string_view title, const std::filesystem::path& startFolder,
    const std::optional<std::filesystem::path>& chosen) {
    return expect(describeFile("open", title, startFolder), chosen);
}

ScriptedDialogs& ScriptedDialogs::expectSaveFile(
    std::string_view title, const std::filesystem::path& startFolder,
    const std::optional<std::filesystem::path>& chosen) {
    return expect(describeFile("save", title, startFolder), chosen);
}

ScriptedDialogs& ScriptedDialogs::expectFont(const PrintFont& current,
                                             const std::optional<PrintFont>& chosen) {
    return expect(describe(current), chosen);
}

ScriptedDialogs& ScriptedDialogs::expectPassword(std::string_view caption,
                                                 std::optional<std::string> entry) {
    return expect(describePassword(caption), std::move(entry));
}

ScriptedDialogs& ScriptedDialogs::whileOpen(std::function<void()> check) {
    steps_.back().check = std::move(check);
    return *this;
}

ScriptedDialogs& ScriptedDialogs::expect(std::string dialog, Reply reply) {
    steps_.push_back({std::move(dialog), std::move(reply), {}});
    return *this;
}

template <typename ReplyKind>
ReplyKind ScriptedDialogs::replyTo(const std::string& dialog) {
    if (steps_.empty()) {
        ADD_FAILURE() << "came and was not expected: " << dialog;
        throw std::logic_error("a dialog without a scripted reply");
    }
    const Step step = std::move(steps_.front());
    steps_.pop_front();
    EXPECT_EQ(dialog, step.dialog);
    if (step.check) step.check();
    const auto* reply = std::get_if<ReplyKind>(&step.reply);
    if (reply == nullptr) throw std::logic_error("a dialog of another kind than scripted");
    return *reply;
}

std::string ScriptedDialogs::prompt(const Prompt& prompt) {
    return replyTo<std::string>(describe(prompt));
}

Answer ScriptedDialogs::message(const Message& message) {
    return replyTo<Answer>(describe(message));
}

std::optional<std::filesystem::path> ScriptedDialogs::openFile(
    std::string_view title, const std::filesystem::path& startFolder) {
    return replyTo<std::optional<std::filesystem::path>>(describeFile("open", title, startFolder));
}

std::optional<std::filesystem::path> ScriptedDialogs::saveFile(
    std::string_view title, const std::filesystem::path& startFolder) {
    return replyTo<std::optional<std::filesystem::path>>(describeFile("save", title, startFolder));
}

std::optional<PrintFont> ScriptedDialogs::chooseFont(const PrintFont& current) {
    return replyTo<std::optional<PrintFont>>(describe(current));
}

bool ScriptedDialogs::passwordWindow(std::string_view caption, const SubmitPassword& submit) {
    passwordCaption_ = caption;
    const SetCaption setCaption = [this](std::string_view text) { passwordCaption_ = text; };
    PasswordStep step = PasswordStep::GoOn;
    while (step == PasswordStep::GoOn) {
        const auto entry = replyTo<std::optional<std::string>>(describePassword(passwordCaption_));
        if (!entry) return false;
        step = submit(*entry, setCaption);
    }
    return true;
}

}  // namespace quorvel
