#include "platform/accessible.h"

#include "platform/com_ptr.h"
#include "platform/late_library.h"
#include "platform/text_tools.h"
#include "platform/wide.h"
#include "util/ignore.h"

namespace quillo {
namespace {

LateFunction<decltype(CreateStdAccessibleObject)>& CreateStandard() {
    static LateFunction<decltype(CreateStdAccessibleObject)> function(L"oleacc.dll", "CreateStdAccessibleObject");
    return function;
}

LateFunction<decltype(LresultFromObject)>& ToLresult() {
    static LateFunction<decltype(LresultFromObject)> function(L"oleacc.dll", "LresultFromObject");
    return function;
}

/// S_FALSE and null for an empty text, as screen readers expect.
HRESULT GiveText(const std::u16string& text, BSTR* out) {
    static LateFunction<decltype(SysAllocStringLen)> allocate(L"oleaut32.dll", "SysAllocStringLen");
    *out = nullptr;
    if (text.empty() || allocate.Get() == nullptr) return S_FALSE;
    *out = allocate.Get()(WideData(text), static_cast<UINT>(text.size()));
    return *out != nullptr ? S_OK : E_OUTOFMEMORY;
}

HRESULT GiveNumber(LONG number, VARIANT* out) {
    out->vt = VT_I4;
    out->lVal = number;
    return S_OK;
}

HRESULT GiveNothing(VARIANT* out) {
    out->vt = VT_EMPTY;
    return S_FALSE;
}

}  // namespace

/// The object that a screen reader holds. It can outlive its control: it then reports that the control no longer
/// exists.
class AccessibleObject : public IAccessible {
  public:
    AccessibleObject(HWND window, AccessibleSource& source) : window_(window), source_(&source) {
        auto* const create = CreateStandard().Get();
        if (create == nullptr) return;
        Ignore(create(window, OBJID_CLIENT, IID_IAccessible, standard_.PutVoid()), "it then stays empty");
    }
    AccessibleObject(const AccessibleObject&) = delete;
    AccessibleObject& operator=(const AccessibleObject&) = delete;

    void Disconnect() { source_ = nullptr; }
    [[nodiscard]] HWND Window() const { return window_; }
    /// False if the system's own object, which finds the neighboring objects, could not be created.
    [[nodiscard]] bool IsComplete() const { return static_cast<bool>(standard_); }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
        if (object == nullptr) return E_POINTER;
        const bool known = id == IID_IUnknown || id == IID_IDispatch || id == IID_IAccessible;
        *object = known ? static_cast<IAccessible*>(this) : nullptr;
        if (known) AddRef();
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

    // Screen readers call the interface directly, never by the names of its members.
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
        return E_NOTIMPL;
    }

    HRESULT STDMETHODCALLTYPE get_accParent(IDispatch** parent) override { return standard_->get_accParent(parent); }
    HRESULT STDMETHODCALLTYPE get_accChildCount(LONG* count) override {
        if (HoldsWindows()) return standard_->get_accChildCount(count);
        *count = source_ != nullptr ? source_->PartCount() : 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE get_accChild(VARIANT part, IDispatch** child) override {
        if (HoldsWindows()) return standard_->get_accChild(part, child);
        *child = nullptr;  // the parts are not objects of their own
        return S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE get_accName(VARIANT child, BSTR* name) override {
        if (!Has(child)) return E_INVALIDARG;
        const AccessiblePart part = source_->Describe(child.lVal);
        return GiveText(part.name.empty() && child.lVal == CHILDID_SELF ? WindowText(window_) : part.name, name);
    }
    HRESULT STDMETHODCALLTYPE get_accValue(VARIANT child, BSTR* value) override {
        return Has(child) ? GiveText(source_->Describe(child.lVal).value, value) : E_INVALIDARG;
    }
    HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT child, BSTR* text) override {
        return Has(child) ? GiveText(source_->Describe(child.lVal).description, text) : E_INVALIDARG;
    }
    HRESULT STDMETHODCALLTYPE get_accRole(VARIANT child, VARIANT* role) override {
        return Has(child) ? GiveNumber(source_->Describe(child.lVal).role, role) : E_INVALIDARG;
    }
    HRESULT STDMETHODCALLTYPE get_accState(VARIANT child, VARIANT* state) override {
        if (!Has(child)) return E_INVALIDARG;
        LONG bits = source_->Describe(child.lVal).state;
        if (IsWindowVisible(window_) == FALSE) bits |= STATE_SYSTEM_INVISIBLE;
        if (IsWindowEnabled(window_) == FALSE) bits |= STATE_SYSTEM_UNAVAILABLE;
        if ((GetWindowLongPtrW(window_, GWL_STYLE) & WS_TABSTOP) != 0) bits |= STATE_SYSTEM_FOCUSABLE;
        if (GetFocus() == window_ && source_->FocusedPart() == child.lVal) bits |= STATE_SYSTEM_FOCUSED;
        return GiveNumber(bits, state);
    }
    HRESULT STDMETHODCALLTYPE get_accHelp(VARIANT, BSTR* text) override { return GiveText({}, text); }
    HRESULT STDMETHODCALLTYPE get_accHelpTopic(BSTR* file, VARIANT, LONG* topic) override {
        *topic = 0;
        return GiveText({}, file);
    }
    HRESULT STDMETHODCALLTYPE get_accKeyboardShortcut(VARIANT, BSTR* text) override { return GiveText({}, text); }
    HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT* child) override {
        if (HoldsWindows()) return standard_->get_accFocus(child);
        if (source_ == nullptr || GetFocus() != window_) return GiveNothing(child);
        return GiveNumber(source_->FocusedPart(), child);
    }
    HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT* children) override {
        for (int part = 1; source_ != nullptr && part <= source_->PartCount(); ++part) {
            if ((source_->Describe(part).state & STATE_SYSTEM_SELECTED) != 0) return GiveNumber(part, children);
        }
        return GiveNothing(children);
    }
    HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT child, BSTR* action) override {
        return Has(child) ? GiveText(source_->Describe(child.lVal).action, action) : E_INVALIDARG;
    }
    HRESULT STDMETHODCALLTYPE accSelect(LONG flags, VARIANT child) override {
        if (!Has(child)) return E_INVALIDARG;
        if ((flags & SELFLAG_TAKEFOCUS) != 0) SetFocus(window_);
        if ((flags & SELFLAG_TAKESELECTION) != 0 && child.lVal != CHILDID_SELF) source_->Activate(child.lVal);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE accLocation(LONG* left, LONG* top, LONG* width, LONG* height, VARIANT child) override {
        if (!Has(child)) return E_INVALIDARG;
        if (child.lVal == CHILDID_SELF) return standard_->accLocation(left, top, width, height, child);
        const Rect place = source_->Describe(child.lVal).place;
        POINT corner{place.left, place.top};
        ClientToScreen(window_, &corner);
        *left = corner.x;
        *top = corner.y;
        *width = place.width;
        *height = place.height;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE accNavigate(LONG direction, VARIANT start, VARIANT* end) override {
        if (HoldsWindows()) return standard_->accNavigate(direction, start, end);
        if (!Has(start)) return E_INVALIDARG;
        const LONG count = source_->PartCount();
        LONG to = 0;
        if (direction == NAVDIR_FIRSTCHILD) to = 1;
        if (direction == NAVDIR_LASTCHILD) to = count;
        if (start.lVal == CHILDID_SELF && to == 0) return standard_->accNavigate(direction, start, end);
        if (direction == NAVDIR_NEXT || direction == NAVDIR_RIGHT) to = start.lVal + 1;
        if (direction == NAVDIR_PREVIOUS || direction == NAVDIR_LEFT) to = start.lVal - 1;
        return to >= 1 && to <= count ? GiveNumber(to, end) : GiveNothing(end);
    }
    HRESULT STDMETHODCALLTYPE accHitTest(LONG x, LONG y, VARIANT* child) override {
        if (HoldsWindows()) return standard_->accHitTest(x, y, child);
        POINT at{x, y};
        ScreenToClient(window_, &at);
        RECT client{};
        GetClientRect(window_, &client);
        if (source_ == nullptr || PtInRect(&client, at) == FALSE) return GiveNothing(child);
        for (int part = 1; part <= source_->PartCount(); ++part) {
            if (source_->Describe(part).place.Contains(Point{at.x, at.y})) return GiveNumber(part, child);
        }
        return GiveNumber(CHILDID_SELF, child);
    }
    HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT child) override {
        if (!Has(child)) return E_INVALIDARG;
        if (source_->Describe(child.lVal).action.empty()) return DISP_E_MEMBERNOTFOUND;
        source_->Activate(child.lVal);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE put_accName(VARIANT, BSTR) override { return DISP_E_MEMBERNOTFOUND; }
    HRESULT STDMETHODCALLTYPE put_accValue(VARIANT, BSTR) override { return DISP_E_MEMBERNOTFOUND; }

  private:
    virtual ~AccessibleObject() = default;

    [[nodiscard]] bool HoldsWindows() const { return source_ != nullptr && source_->HoldsWindows(); }

    [[nodiscard]] bool Has(const VARIANT& child) const {
        return source_ != nullptr && child.vt == VT_I4 && child.lVal >= 0 && child.lVal <= source_->PartCount();
    }

    HWND window_;
    AccessibleSource* source_;  // null after its control has ended
    ComPtr<IAccessible> standard_;
    ULONG references_ = 1;
};

AccessibleLink::~AccessibleLink() {
    Cut();
}

void AccessibleLink::Cut() {
    if (object_ == nullptr) return;
    object_->Disconnect();
    object_->Release();
    object_ = nullptr;
}

LRESULT AccessibleLink::Answer(HWND window, WPARAM wParam, LPARAM lParam) {
    // The number is negative, and a 32-bit program passes only 32 bits of it.
    if (static_cast<LONG>(lParam) == OBJID_CLIENT && ToLresult().Get() != nullptr) {
        if (object_ != nullptr && object_->Window() != window) Cut();  // the control has a new window
        if (object_ == nullptr) object_ = new AccessibleObject(window, source_);
        if (object_->IsComplete()) return ToLresult().Get()(IID_IAccessible, wParam, object_);
    }
    return DefWindowProcW(window, WM_GETOBJECT, wParam, lParam);
}

}  // namespace quillo
