#include "qrv/TextEncoding.h"

#include <bit>
#include <string_view>

#include "core/Utf8.h"

namespace quorvel {

namespace {

constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view littleEndianMark = "\xFF\xFE";
constexpr std::string_view bigEndianMark = "\xFE\xFF";
constexpr char32_t replacement = 0xFFFD;

bool isUtf8(std::string_view text) {
    while (!text.empty()) {
        if (!takeUtf8(text)) return false;
    }
    return true;
}

/// Reads UTF-16 unit by unit; a byte that is left over at the end counts as half a character.
class Utf16Reader {
  public:
    Utf16Reader(std::string_view bytes, std::endian order) : rest_(bytes), order_(order) {}

    bool atEnd() const { return rest_.empty(); }

    char32_t take() {
        const char32_t first = takeUnit();
        if (first < 0xD800 || first >= 0xE000) return first;
        const bool isPair = first < 0xDC00 && rest_.size() >= 2;
        const char32_t second = isPair ? unitAt() : 0;
        if (second < 0xDC00 || second >= 0xE000) return replacement;
        takeUnit();
        return 0x10000 + ((first - 0xD800) << 10) + (second - 0xDC00);
    }

  private:
    char32_t unitAt() const {
        const char32_t first = static_cast<unsigned char>(rest_[0]);
        const char32_t second = static_cast<unsigned char>(rest_[1]);
        return order_ == std::endian::little ? first | second << 8 : first << 8 | second;
    }

    char32_t takeUnit() {
        if (rest_.size() < 2) {
            rest_ = {};
            return replacement;
        }
        const char32_t unit = unitAt();
        rest_.remove_prefix(2);
        return unit;
    }

    std::string_view rest_;
    std::endian order_;
};

std::string utf8FromUtf16(std::string_view bytes, std::endian order) {
    std::string text;
    Utf16Reader reader(bytes, order);
    while (!reader.atEnd()) appendUtf8(text, reader.take());
    return text;
}

}  // namespace

std::string decodedText(std::span<const std::byte> bytes, const CodePage& codePage) {
    std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    if (text.starts_with(littleEndianMark)) {
        return utf8FromUtf16(text.substr(littleEndianMark.size()), std::endian::little);
    }
    if (text.starts_with(bigEndianMark)) {
        return utf8FromUtf16(text.substr(bigEndianMark.size()), std::endian::big);
    }
    if (text.starts_with(utf8Mark)) text.remove_prefix(utf8Mark.size());
    return isUtf8(text) ? std::string(text) : codePage.toUtf8(text);
}

}  // namespace quorvel
