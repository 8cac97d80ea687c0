#include "platform/win32/SystemClock.h"

#include <array>

#include "platform/win32/Texts.h"

namespace quorvel {

namespace {

using Buffer = std::array<wchar_t, 128>;

}  // namespace

std::string SystemClock::date() const {
    Buffer text{};
    ::GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, DATE_SHORTDATE, nullptr, nullptr, text.data(),
                      static_cast<int>(text.size()), nullptr);
    return fromWide(text.data(), codePage_);
}

std::string SystemClock::time() const {
    Buffer text{};
    ::GetTimeFormatEx(LOCALE_NAME_USER_DEFAULT, 0, nullptr, nullptr, text.data(),
                      static_cast<int>(text.size()));
    return fromWide(text.data(), codePage_);
}

}  // namespace quorvel
