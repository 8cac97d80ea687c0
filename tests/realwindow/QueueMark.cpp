#include "tests/realwindow/QueueMark.h"

#include "tests/realwindow/SystemTexts.h"

namespace quorvel::scenario {

void QueueMark::post(HWND readOnlyBox) {
    box_ = readOnlyBox;
    ++limit_;
    PostMessageW(box_, EM_SETLIMITTEXT, limit_, 0);
}

bool QueueMark::isReached() const {
    return static_cast<WPARAM>(ask(box_, EM_GETLIMITTEXT)) == limit_;
}

}  // namespace quorvel::scenario
