#include "tests/scenario/User.h"

namespace quorvel::scenario {

Reply typed(std::string_view text) {
    Reply reply;
    reply.text = text;
    return reply;
}

Reply pressed(Answer button) {
    Reply reply;
    reply.button = button;
    return reply;
}

Reply cancelled() {
    Reply reply;
    reply.cancelled = true;
    return reply;
}

void User::act(const Action& action) {
    driver_.act(action);
    finish();
}

void User::start() {
    act(Start{});
}

void User::choose(std::string_view entry, const std::vector<Reply>& replies) {
    driver_.act(ChooseMenu{std::string(entry)});
    for (const Reply& reply : replies) answer(reply);
    finish();
}

void User::enter(std::string_view text) {
    act(TypeText{std::string(text)});
    act(PressKey{"Enter"});
}

Dialog User::answer(const Reply& reply) {
    const auto dialog = driver_.openDialog();
    if (!dialog) throw ScenarioError("a dialog is missing");
    driver_.answer(reply);
    return *dialog;
}

void User::finish() {
    if (const auto dialog = driver_.openDialog())
        throw ScenarioError("\"" + dialog->title + "\" was not expected");
}

}  // namespace quorvel::scenario
