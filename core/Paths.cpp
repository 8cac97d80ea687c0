#include "core/Paths.h"

#include <algorithm>
#include <type_traits>

namespace quorvel {

std::string pathText(const std::filesystem::path& path, const CodePage& codePage) {
    const std::filesystem::path::string_type& native = path.native();
    std::string text;
    // A path need not be well-formed Unicode: converting its units here never fails.
    if constexpr (std::is_same_v<std::filesystem::path::value_type, wchar_t>)
        text = codePage.fromUtf16(std::u16string(native.begin(), native.end()));
    else
        text = codePage.fromUtf8(std::string(native.begin(), native.end()));
    std::ranges::replace(text, '/', '\\');
    return text;
}

std::string fileNameText(std::string_view pathText) {
    const std::size_t separator = pathText.rfind('\\');
    return std::string(separator == std::string_view::npos ? pathText
                                                           : pathText.substr(separator + 1));
}

}  // namespace quorvel
