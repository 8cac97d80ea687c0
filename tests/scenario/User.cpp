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

void User::start() {
    driver_.start();
    finish();
}

void User::choose(std::string_view entry, const std::vector<Reply>& replies) {
    driver_.chooseMenu(entry);
    for (const Reply& reply : replies) answer(reply);
    finish();
}

void User::click(double x, double y) {
    driver_.click(x, y);
    finish();
}

void User::clickControl(std::string_view control) {
    driver_.clickControl(control);
    finish();
}

void User::scroll(std::string_view bar, int position) {
    driver_.moveScrollBar(bar, position);
    finish();
}

void User::enter(std::string_view text) {
    driver_.type(text);
    finish();
    driver_.pressKey("Enter");
    finish();
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
