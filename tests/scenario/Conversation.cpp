#include "tests/scenario/Conversation.h"

#include <utility>

namespace quorvel::scenario {

namespace {

constexpr std::string_view sheetExtension = ".qrv";

}  // namespace

Conversation::~Conversation() {
    {
        const std::lock_guard lock(mutex_);
        abandoned_ = true;
    }
    changed_.notify_all();
    if (program_.joinable()) program_.join();
}

void Conversation::begin(std::function<void()> action) {
    if (program_.joinable()) throw ScenarioError("the action before has not finished");
    turn_ = Turn::Programs;
    program_ = std::thread([this, action = std::move(action)] {
        try {
            action();
        } catch (const Abandoned&) {
        } catch (...) {
            error_ = std::current_exception();
        }
        handTurnTo(Turn::Nobodys);
    });
}

void Conversation::handTurnTo(Turn turn) {
    {
        const std::lock_guard lock(mutex_);
        turn_ = turn;
    }
    changed_.notify_all();
}

std::optional<Dialog> Conversation::openDialog() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return turn_ != Turn::Programs; });
    if (turn_ == Turn::Users) return dialog_;
    lock.unlock();
    if (program_.joinable()) program_.join();
    if (error_) std::rethrow_exception(std::exchange(error_, nullptr));
    return std::nullopt;
}

void Conversation::answer(const Reply& reply) {
    // Checked while the dialog is open: the real one would not take a file that is missing.
    if (dialog_->kind == DialogKind::OpenFile && !reply.cancelled &&
        !std::filesystem::exists(resolve_(reply.text)))
        throw ScenarioError("there is no file " + reply.text + " to open");
    reply_ = reply;
    handTurnTo(Turn::Programs);
}

Reply Conversation::ask(Dialog dialog) {
    std::unique_lock lock(mutex_);
    // A program that answers its being abandoned with another dialog is thrown out of that one,
    // too.
    if (abandoned_) throw Abandoned{};
    dialog_ = std::move(dialog);
    turn_ = Turn::Users;
    changed_.notify_all();
    changed_.wait(lock, [this] { return turn_ == Turn::Programs || abandoned_; });
    if (abandoned_) throw Abandoned{};
    return reply_;
}

std::string Conversation::prompt(const Prompt& prompt) {
    Dialog dialog;
    dialog.kind = DialogKind::Prompt;
    dialog.title = prompt.title;
    dialog.text = prompt.question;
    // The box holds no more, neither as a default nor as an answer.
    dialog.defaultAnswer = prompt.defaultAnswer.substr(0, prompt.longestAnswer);
    const Reply reply = ask(std::move(dialog));
    return reply.cancelled ? std::string() : reply.text.substr(0, prompt.longestAnswer);
}

Answer Conversation::message(const Message& message) {
    Dialog dialog;
    dialog.kind = DialogKind::Message;
    dialog.title = message.title;
    dialog.text = message.text;
    dialog.icon = message.icon;
    dialog.buttons = message.buttons;
    return ask(std::move(dialog)).button;
}

std::optional<std::filesystem::path> Conversation::openFile(std::string_view title,
                                                            const std::filesystem::path&) {
    Dialog dialog;
    dialog.kind = DialogKind::OpenFile;
    dialog.title = title;
    const Reply reply = ask(std::move(dialog));
    if (reply.cancelled) return std::nullopt;
    return resolve_(reply.text);
}

std::optional<std::filesystem::path> Conversation::saveFile(std::string_view title,
                                                            const std::filesystem::path&) {
    Dialog dialog;
    dialog.kind = DialogKind::SaveFile;
    dialog.title = title;
    const Reply reply = ask(std::move(dialog));
    if (reply.cancelled) return std::nullopt;
    std::filesystem::path path = resolve_(reply.text);
    if (!path.has_extension()) path += sheetExtension;
    return path;
}

std::optional<PrintFont> Conversation::chooseFont(const PrintFont&) {
    Dialog dialog;
    dialog.kind = DialogKind::Font;
    const Reply reply = ask(std::move(dialog));
    if (reply.cancelled) return std::nullopt;
    return reply.font;
}

bool Conversation::passwordWindow(std::string_view caption, const SubmitPassword& submit) {
    std::string shownCaption(caption);
    const SetCaption setCaption = [&](std::string_view text) { shownCaption = text; };
    PasswordStep step = PasswordStep::GoOn;
    while (step == PasswordStep::GoOn) {
        Dialog dialog;
        dialog.kind = DialogKind::Password;
        dialog.title = shownCaption;
        const Reply reply = ask(std::move(dialog));
        if (reply.cancelled) return false;
        step = submit(reply.text, setCaption);
    }
    return true;
}

}  // namespace quorvel::scenario
