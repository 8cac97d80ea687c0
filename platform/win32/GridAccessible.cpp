#include "platform/win32/GridAccessible.h"

#include "platform/win32/Texts.h"

namespace quorvel {

namespace {

bool isWindowItself(const VARIANT& child) {
    return child.vt == VT_I4 && child.lVal == CHILDID_SELF;
}

HRESULT giveNumber(LONG number, VARIANT* target) {
    target->vt = VT_I4;
    target->lVal = number;
    return S_OK;
}

HRESULT giveNothing(VARIANT* target) {
    target->vt = VT_EMPTY;
    return S_FALSE;
}

/// The child window of that number, from 1; null behind the last.
HWND childWindow(HWND parent, LONG number) {
    HWND child = ::GetWindow(parent, GW_CHILD);
    while (child != nullptr && number > 1) {
        child = ::GetWindow(child, GW_HWNDNEXT);
        --number;
    }
    return child;
}

LONG childWindowCount(HWND parent) {
    LONG count = 0;
    while (childWindow(parent, count + 1) != nullptr) ++count;
    return count;
}

}  // namespace

GridAccessible::GridAccessible(HWND window, const frmQRV& form, const CodePage& codePage)
    : window_(window), description_(form), codePage_(codePage) {
    void* usual = nullptr;
    if (SUCCEEDED(::CreateStdAccessibleObject(window, OBJID_CLIENT, IID_IAccessible, &usual)))
        usual_.reset(static_cast<IAccessible*>(usual));
}

HRESULT GridAccessible::QueryInterface(REFIID kind, void** object) {
    if (kind != IID_IUnknown && kind != IID_IDispatch && kind != IID_IAccessible) {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    *object = static_cast<IAccessible*>(this);
    AddRef();
    return S_OK;
}

ULONG GridAccessible::Release() {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
}

int GridAccessible::placeOf(const VARIANT& child) const {
    if (child.vt != VT_I4 || child.lVal < 1 || child.lVal > description_.count()) return 0;
    return static_cast<int>(child.lVal);
}

HRESULT GridAccessible::giveText(std::string_view text, BSTR* target) const {
    const std::wstring wide = toWide(text, codePage_);
    *target = ::SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
    return *target == nullptr ? E_OUTOFMEMORY : S_OK;
}

HRESULT GridAccessible::giveEdited(VARIANT* child) const {
    const int edited = description_.editedNumber();
    return edited == 0 ? giveNothing(child) : giveNumber(edited, child);
}

HRESULT GridAccessible::get_accParent(IDispatch** parent) {
    *parent = nullptr;
    return usual_ ? usual_->get_accParent(parent) : S_FALSE;
}

HRESULT GridAccessible::get_accChildCount(LONG* count) {
    *count = description_.count() + childWindowCount(window_);
    return S_OK;
}

HRESULT GridAccessible::get_accChild(VARIANT child, IDispatch** object) {
    *object = nullptr;
    if (child.vt != VT_I4) return E_INVALIDARG;
    const HWND control = childWindow(window_, child.lVal - description_.count());
    if (placeOf(child) != 0 || isWindowItself(child) || control == nullptr) return S_FALSE;
    return ::AccessibleObjectFromWindow(control, static_cast<DWORD>(OBJID_WINDOW), IID_IDispatch,
                                        reinterpret_cast<void**>(object));
}

HRESULT GridAccessible::get_accName(VARIANT child, BSTR* name) {
    *name = nullptr;
    if (const int place = placeOf(child)) return giveText(description_.at(place).name, name);
    if (!isWindowItself(child)) return E_INVALIDARG;
    return giveText(windowText(window_, codePage_), name);
}

HRESULT GridAccessible::get_accValue(VARIANT child, BSTR* value) {
    *value = nullptr;
    if (const int place = placeOf(child)) return giveText(description_.at(place).value, value);
    return isWindowItself(child) ? S_FALSE : E_INVALIDARG;
}

HRESULT GridAccessible::get_accRole(VARIANT child, VARIANT* role) {
    if (placeOf(child) != 0) return giveNumber(ROLE_SYSTEM_CELL, role);
    return isWindowItself(child) ? giveNumber(ROLE_SYSTEM_TABLE, role) : E_INVALIDARG;
}

HRESULT GridAccessible::get_accState(VARIANT child, VARIANT* state) {
    const int place = placeOf(child);
    if (place == 0 && !isWindowItself(child)) return E_INVALIDARG;
    const bool edited = place != 0 && place == description_.editedNumber();
    constexpr LONG usual = STATE_SYSTEM_FOCUSABLE | STATE_SYSTEM_SELECTABLE;
    return giveNumber(edited ? usual | STATE_SYSTEM_FOCUSED | STATE_SYSTEM_SELECTED : usual, state);
}

HRESULT GridAccessible::get_accFocus(VARIANT* child) {
    return giveEdited(child);
}

HRESULT GridAccessible::get_accSelection(VARIANT* child) {
    return giveEdited(child);
}

HRESULT GridAccessible::get_accDefaultAction(VARIANT child, BSTR* action) {
    *action = nullptr;
    return placeOf(child) == 0 ? S_FALSE : giveText("Click", action);
}

HRESULT GridAccessible::accDoDefaultAction(VARIANT child) {
    const int number = placeOf(child);
    if (number == 0) return notThere;
    const Rectangle place = description_.at(number).place;
    ::PostMessageW(window_, WM_LBUTTONDOWN, MK_LBUTTON,
                   MAKELPARAM(place.left + place.width / 2, place.top + place.height / 2));
    return S_OK;
}

HRESULT GridAccessible::accLocation(LONG* left, LONG* top, LONG* width, LONG* height,
                                    VARIANT child) {
    const int number = placeOf(child);
    if (number == 0)
        return usual_ ? usual_->accLocation(left, top, width, height, child) : E_INVALIDARG;
    const Rectangle place = description_.at(number).place;
    POINT corner{place.left, place.top};
    ::ClientToScreen(window_, &corner);
    *left = corner.x;
    *top = corner.y;
    *width = place.width;
    *height = place.height;
    return S_OK;
}

HRESULT GridAccessible::accHitTest(LONG left, LONG top, VARIANT* child) {
    POINT point{left, top};
    ::ScreenToClient(window_, &point);
    const int place = description_.numberAt(point.x, point.y);
    if (place != 0) return giveNumber(place, child);
    return usual_ ? usual_->accHitTest(left, top, child) : giveNothing(child);
}

HRESULT GridAccessible::accNavigate(LONG direction, VARIANT start, VARIANT* end) {
    LONG count = 0;
    get_accChildCount(&count);
    const LONG from = start.vt == VT_I4 ? start.lVal : 0;
    LONG to = 0;
    if (direction == NAVDIR_FIRSTCHILD && from == CHILDID_SELF) to = 1;
    if (direction == NAVDIR_LASTCHILD && from == CHILDID_SELF) to = count;
    if (direction == NAVDIR_NEXT && from != CHILDID_SELF) to = from + 1;
    if (direction == NAVDIR_PREVIOUS && from != CHILDID_SELF) to = from - 1;
    return to >= 1 && to <= count ? giveNumber(to, end) : giveNothing(end);
}

}  // namespace quorvel
