#include "commands/Questions.h"

namespace quorvel {

namespace {

constexpr std::size_t txtTruncateSLength = 15;
constexpr std::size_t txtTruncateLength = 20;

}  // namespace

std::string txtTruncateS(std::string_view text) {
    return std::string(text.substr(0, txtTruncateSLength));
}

std::string txtTruncate(std::string_view text) {
    return std::string(text.substr(0, txtTruncateLength));
}

void showCritical(CommandContext& context, std::string_view text, std::string_view title) {
    context.ports.dialogs.message({.text = text, .title = title, .icon = Icon::Critical});
}

bool askToTryAgain(CommandContext& context, std::string_view text, std::string_view title) {
    return context.ports.dialogs.message(
               {.text = text, .title = title, .buttons = Buttons::OkCancel}) == Answer::Ok;
}

}  // namespace quorvel
