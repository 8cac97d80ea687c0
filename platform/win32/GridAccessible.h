#pragma once

#include <windows.h>

#include "core/CodePage.h"
#include "platform/win32/Handles.h"
#include "window/GridDescription.h"

#include <oleacc.h>

namespace quorvel {

// Windows' own interface: an object behind it ends with its last Release, never through it.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

/// Tells screen readers what the window draws. The window's other children, which are controls,
/// tell about themselves; they are numbered behind the drawn places.
class GridAccessible final : public IAccessible {
  public:
    /// The form and the code page must outlive the window, and disconnect() be called before it
    /// goes.
    GridAccessible(HWND window, const frmQRV& form, const CodePage& codePage);
    GridAccessible(const GridAccessible&) = delete;
    GridAccessible& operator=(const GridAccessible&) = delete;

    /// No question of another program comes through any more.
    void disconnect() { ::CoDisconnectObject(this, 0); }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID kind, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override;

    HRESULT STDMETHODCALLTYPE get_accParent(IDispatch** parent) override;
    HRESULT STDMETHODCALLTYPE get_accChildCount(LONG* count) override;
    HRESULT STDMETHODCALLTYPE get_accChild(VARIANT child, IDispatch** object) override;
    HRESULT STDMETHODCALLTYPE get_accName(VARIANT child, BSTR* name) override;
    HRESULT STDMETHODCALLTYPE get_accValue(VARIANT child, BSTR* value) override;
    HRESULT STDMETHODCALLTYPE get_accRole(VARIANT child, VARIANT* role) override;
    HRESULT STDMETHODCALLTYPE get_accState(VARIANT child, VARIANT* state) override;
    HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT* child) override;
    HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT* child) override;
    HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT child, BSTR* action) override;
    HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT child) override;
    HRESULT STDMETHODCALLTYPE accLocation(LONG* left, LONG* top, LONG* width, LONG* height,
                                          VARIANT child) override;
    HRESULT STDMETHODCALLTYPE accHitTest(LONG left, LONG top, VARIANT* child) override;
    HRESULT STDMETHODCALLTYPE accNavigate(LONG direction, VARIANT start, VARIANT* end) override;

    // What the window has nothing to say to.
    HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT, BSTR*) override { return notThere; }
    HRESULT STDMETHODCALLTYPE get_accHelp(VARIANT, BSTR*) override { return notThere; }
    HRESULT STDMETHODCALLTYPE get_accHelpTopic(BSTR*, VARIANT, LONG*) override { return notThere; }
    HRESULT STDMETHODCALLTYPE get_accKeyboardShortcut(VARIANT, BSTR*) override { return notThere; }
    HRESULT STDMETHODCALLTYPE accSelect(LONG, VARIANT) override { return notThere; }
    HRESULT STDMETHODCALLTYPE put_accName(VARIANT, BSTR) override { return notThere; }
    HRESULT STDMETHODCALLTYPE put_accValue(VARIANT, BSTR) override { return notThere; }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) override {
        return E_NOTIMPL;
    }

  private:
    static constexpr HRESULT notThere = DISP_E_MEMBERNOTFOUND;

    ~GridAccessible() = default;  // by the last Release

    /// The number of a drawn place; 0 for anything else.
    int placeOf(const VARIANT& child) const;
    HRESULT giveText(std::string_view text, BSTR* target) const;
    /// The cell that the editor stands over.
    HRESULT giveEdited(VARIANT* child) const;

    HWND window_;
    GridDescription description_;
    const CodePage& codePage_;
    UniqueInterface<IAccessible> usual_;  // what Windows itself says about the window
    ULONG references_ = 1;
};

#pragma GCC diagnostic pop

}  // namespace quorvel
