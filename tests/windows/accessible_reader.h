#pragma once

#include <gtest/gtest.h>

#include <string>

#include "platform/accessible.h"
#include "platform/com_ptr.h"
#include "platform/late_library.h"
#include "platform/wide.h"

namespace quillo::windows_tests {

/// A window as a screen reader sees it.
class Reader {
  public:
    explicit Reader(HWND window) {
        LateFunction<decltype(AccessibleObjectFromWindow)> find(L"oleacc.dll", "AccessibleObjectFromWindow");
        EXPECT_EQ(find.Get()(window, static_cast<DWORD>(OBJID_CLIENT), IID_IAccessible, object_.PutVoid()), S_OK);
    }
    IAccessible* operator->() const { return object_.Get(); }

    [[nodiscard]] std::u16string Name(LONG part = 0) const { return Text(&IAccessible::get_accName, part); }
    [[nodiscard]] std::u16string Value(LONG part = 0) const { return Text(&IAccessible::get_accValue, part); }
    [[nodiscard]] std::u16string Description(LONG part = 0) const {
        return Text(&IAccessible::get_accDescription, part);
    }
    [[nodiscard]] std::u16string Action(LONG part = 0) const { return Text(&IAccessible::get_accDefaultAction, part); }
    [[nodiscard]] LONG Role(LONG part = 0) const { return Number(&IAccessible::get_accRole, part); }
    [[nodiscard]] LONG State(LONG part = 0) const { return Number(&IAccessible::get_accState, part); }
    [[nodiscard]] static VARIANT Part(LONG part) {
        VARIANT variant{};
        variant.vt = VT_I4;
        variant.lVal = part;
        return variant;
    }
    [[nodiscard]] LONG Go(LONG direction, LONG from) const {
        VARIANT to{};
        return object_->accNavigate(direction, Part(from), &to) == S_OK && to.vt == VT_I4 ? to.lVal : -1;
    }

  private:
    using TextGetter = HRESULT STDMETHODCALLTYPE (IAccessible::*)(VARIANT, BSTR*);
    using NumberGetter = HRESULT STDMETHODCALLTYPE (IAccessible::*)(VARIANT, VARIANT*);

    [[nodiscard]] std::u16string Text(TextGetter getter, LONG part) const {
        BSTR text = nullptr;
        if ((object_.Get()->*getter)(Part(part), &text) != S_OK) return u"";
        const std::u16string copy(FromWide(text));
        LateFunction<decltype(SysFreeString)> release(L"oleaut32.dll", "SysFreeString");
        release.Get()(text);
        return copy;
    }
    [[nodiscard]] LONG Number(NumberGetter getter, LONG part) const {
        VARIANT number{};
        if ((object_.Get()->*getter)(Part(part), &number) != S_OK || number.vt != VT_I4) return -1;
        return number.lVal;
    }

    ComPtr<IAccessible> object_;
};

}  // namespace quillo::windows_tests
