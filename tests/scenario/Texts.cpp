#include "tests/scenario/Texts.h"

namespace quorvel::scenario {

namespace {

constexpr std::string_view folderMark = "*\\";

std::string_view kindWord(DialogKind kind) {
    switch (kind) {
        case DialogKind::Prompt:
            return "prompt";
        case DialogKind::Message:
            return "message";
        case DialogKind::OpenFile:
            return "open";
        case DialogKind::SaveFile:
            return "save";
        case DialogKind::Font:
            return "font";
        case DialogKind::Password:
            return "password";
    }
    return {};
}

std::string_view iconWord(Icon icon) {
    switch (icon) {
        case Icon::None:
            return "none";
        case Icon::Critical:
            return "critical";
        case Icon::Information:
            return "information";
    }
    return {};
}

std::string_view buttonsWord(Buttons buttons) {
    switch (buttons) {
        case Buttons::Ok:
            return "ok";
        case Buttons::OkCancel:
            return "ok-cancel";
        case Buttons::YesNo:
            return "yes-no";
    }
    return {};
}

}  // namespace

std::optional<std::string_view> insideProgramFolder(std::string_view text) {
    if (!text.starts_with(folderMark)) return std::nullopt;
    return text.substr(folderMark.size());
}

std::string expanded(std::string_view text, std::string_view programFolder) {
    const auto inside = insideProgramFolder(text);
    if (!inside) return std::string(text);
    return std::string(programFolder) + "\\" + std::string(*inside);
}

std::string expandedEverywhere(std::string_view text, std::string_view programFolder) {
    std::string result(text);
    std::size_t position = 0;
    while ((position = result.find(folderMark, position)) != std::string::npos) {
        result.replace(position, 1, programFolder);
        position += programFolder.size();
    }
    return result;
}

std::string quoted(std::string_view text, std::string_view programFolder) {
    constexpr std::string_view hexadecimalDigits = "0123456789ABCDEF";
    std::string result = "\"";
    for (std::size_t position = 0; position < text.size(); ++position) {
        if (!programFolder.empty() && text.substr(position).starts_with(programFolder)) {
            position += programFolder.size() - 1;
            result += '*';
            continue;
        }
        const char character = text[position];
        const auto code = static_cast<unsigned char>(character);
        if (text.substr(position, 2) == "\r\n") {
            result += "\\n";
            ++position;
        } else if (character == '"' || character == '\\') {
            result += '\\';
            result += character;
        } else if (code < 0x20 || code >= 0x7F) {
            result += "\\x";
            result += hexadecimalDigits[code / 16];
            result += hexadecimalDigits[code % 16];
        } else {
            result += character;
        }
    }
    return result + "\"";
}

std::string described(const Dialog& dialog, std::string_view programFolder) {
    std::string line(kindWord(dialog.kind));
    const auto add = [&line, programFolder](std::string_view content) {
        line += ' ';
        line += quoted(content, programFolder);
    };
    if (dialog.kind == DialogKind::Font) return line;
    add(dialog.title);
    if (dialog.kind == DialogKind::Prompt) {
        add(dialog.text);
        line += " default";
        add(dialog.defaultAnswer);
    }
    if (dialog.kind == DialogKind::Message) {
        add(dialog.text);
        line.append(" icon ").append(iconWord(dialog.icon));
        line.append(" buttons ").append(buttonsWord(dialog.buttons));
    }
    return line;
}

}  // namespace quorvel::scenario
