#pragma once

#include <memory>
#include <type_traits>
#include <utility>

#include <windows.h>
#include <objbase.h>

namespace quorvel {

namespace handle_release {

struct Object {
    void operator()(void* object) const { ::DeleteObject(object); }
};
struct DeviceContext {
    void operator()(HDC context) const { ::DeleteDC(context); }
};
struct MenuBar {
    void operator()(HMENU menu) const { ::DestroyMenu(menu); }
};
struct AcceleratorTable {
    void operator()(HACCEL table) const { ::DestroyAcceleratorTable(table); }
};
struct Interface {
    void operator()(IUnknown* object) const { object->Release(); }
};
struct TaskMemory {
    void operator()(void* memory) const { ::CoTaskMemFree(memory); }
};
struct Kernel {
    void operator()(void* handle) const { ::CloseHandle(handle); }
};

}  // namespace handle_release

/// One owner per handle, each of its own kind.
using UniqueFont = std::unique_ptr<std::remove_pointer_t<HFONT>, handle_release::Object>;
using UniqueBrush = std::unique_ptr<std::remove_pointer_t<HBRUSH>, handle_release::Object>;
using UniqueBitmap = std::unique_ptr<std::remove_pointer_t<HBITMAP>, handle_release::Object>;
/// A device context that was created; one that a window lends is a WindowDC.
using UniqueDC = std::unique_ptr<std::remove_pointer_t<HDC>, handle_release::DeviceContext>;
using UniqueMenu = std::unique_ptr<std::remove_pointer_t<HMENU>, handle_release::MenuBar>;
using UniqueAcceleratorTable =
    std::unique_ptr<std::remove_pointer_t<HACCEL>, handle_release::AcceleratorTable>;
/// A reference to an object of Windows' own.
template <typename Kind>
using UniqueInterface = std::unique_ptr<Kind, handle_release::Interface>;
using UniqueTaskText = std::unique_ptr<wchar_t, handle_release::TaskMemory>;
using UniqueHandle = std::unique_ptr<void, handle_release::Kernel>;

/// An object selected into a device context; the one before it comes back at the end.
class SelectedObject {
  public:
    SelectedObject() = default;
    SelectedObject(HDC context, HGDIOBJ object)
        : context_(context), previous_(::SelectObject(context, object)) {}
    SelectedObject(SelectedObject&& other) noexcept
        : context_(std::exchange(other.context_, nullptr)),
          previous_(std::exchange(other.previous_, nullptr)) {}
    SelectedObject& operator=(SelectedObject&& other) noexcept {
        std::swap(context_, other.context_);
        std::swap(previous_, other.previous_);
        return *this;
    }
    ~SelectedObject() {
        if (previous_ != nullptr) ::SelectObject(context_, previous_);
    }

  private:
    HDC context_ = nullptr;
    HGDIOBJ previous_ = nullptr;
};

/// The device context of a window (or of the screen), lent for a moment.
class WindowDC {
  public:
    explicit WindowDC(HWND window) : window_(window), context_(::GetDC(window)) {}
    WindowDC(const WindowDC&) = delete;
    WindowDC& operator=(const WindowDC&) = delete;
    ~WindowDC() { ::ReleaseDC(window_, context_); }

    HDC get() const { return context_; }

  private:
    HWND window_;
    HDC context_;
};

/// While it lives, this thread can use Windows' own objects.
class ObjectApartment {
  public:
    ObjectApartment()
        : entered_(SUCCEEDED(
              ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE))) {}
    ObjectApartment(const ObjectApartment&) = delete;
    ObjectApartment& operator=(const ObjectApartment&) = delete;
    ~ObjectApartment() {
        if (entered_) ::CoUninitialize();
    }

  private:
    bool entered_;
};

}  // namespace quorvel
