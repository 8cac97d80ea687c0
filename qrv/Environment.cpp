#include "qrv/Environment.h"

#include <system_error>

namespace quorvel {

std::filesystem::path pathOf(std::string_view path) {
    const std::filesystem::path given(std::u8string(path.begin(), path.end()));
    std::error_code error;
    std::filesystem::path absolute = std::filesystem::absolute(given, error);
    return error ? given : absolute;
}

std::string utf8Of(const std::filesystem::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

}  // namespace quorvel
