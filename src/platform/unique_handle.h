#pragma once

#include <utility>

#include "platform/win32.h"

namespace quillo {

/// Owns one handle of the system and closes it with the function in its type.
template <typename Handle, auto CloseFunction, auto kNone = nullptr>
class UniqueHandle {
  public:
    UniqueHandle() = default;
    explicit UniqueHandle(Handle handle) : handle_(handle) {}
    UniqueHandle(UniqueHandle&& other) noexcept : handle_(other.Release()) {}
    UniqueHandle& operator=(UniqueHandle&& other) noexcept {
        if (this != &other) Reset(other.Release());
        return *this;
    }
    UniqueHandle(const UniqueHandle&) = delete;
    UniqueHandle& operator=(const UniqueHandle&) = delete;
    ~UniqueHandle() { Reset(); }

    [[nodiscard]] Handle Get() const { return handle_; }
    explicit operator bool() const { return handle_ != None(); }

    /// Releases the handle without closing it.
    [[nodiscard]] Handle Release() { return std::exchange(handle_, None()); }
    void Reset(Handle handle = None()) {
        if (handle_ != None()) (void)CloseFunction(handle_);  // nothing can be done about a failed close
        handle_ = handle;
    }

  private:
    static Handle None() { return (Handle)kNone; }  // INVALID_HANDLE_VALUE is a cast integer

    Handle handle_ = None();
};

/// The kinds of handles whose "none" is null.
using KernelHandle = UniqueHandle<HANDLE, &CloseHandle>;
/// A file: its "none" is INVALID_HANDLE_VALUE.
using FileHandle = UniqueHandle<HANDLE, &CloseHandle, LONG_PTR{-1}>;
using FindHandle = UniqueHandle<HANDLE, &FindClose, LONG_PTR{-1}>;
using FontHandle = UniqueHandle<HFONT, &DeleteObject>;
using IconHandle = UniqueHandle<HICON, &DestroyIcon>;
using BrushHandle = UniqueHandle<HBRUSH, &DeleteObject>;
using PenHandle = UniqueHandle<HPEN, &DeleteObject>;
using BitmapHandle = UniqueHandle<HBITMAP, &DeleteObject>;
using MemoryDc = UniqueHandle<HDC, &DeleteDC>;
using RegistryKeyHandle = UniqueHandle<HKEY, &RegCloseKey>;
using WindowHandle = UniqueHandle<HWND, &DestroyWindow>;
using LibraryHandle = UniqueHandle<HMODULE, &FreeLibrary>;

}  // namespace quillo
