#include "platform/drop_target.h"

#include <utility>

#include "platform/wide.h"

// After windows.h.
#include <shellapi.h>

namespace quillo {
namespace {

FORMATETC GlobalMemory(CLIPFORMAT format) {
    return FORMATETC{format, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
}

/// Dropped data in global memory, released at the end of the scope.
class DroppedMemory {
  public:
    DroppedMemory(IDataObject* data, CLIPFORMAT format) {
        FORMATETC wanted = GlobalMemory(format);
        got_ = SUCCEEDED(data->GetData(&wanted, &medium_)) && medium_.tymed == TYMED_HGLOBAL;
        if (got_) bytes_ = static_cast<const char*>(GlobalLock(medium_.hGlobal));
    }
    DroppedMemory(const DroppedMemory&) = delete;
    DroppedMemory& operator=(const DroppedMemory&) = delete;
    ~DroppedMemory() {
        if (bytes_ != nullptr) GlobalUnlock(medium_.hGlobal);
        if (got_) ReleaseStgMedium(&medium_);
    }

    [[nodiscard]] std::string_view Bytes() const {
        return bytes_ == nullptr ? std::string_view() : std::string_view(bytes_, GlobalSize(medium_.hGlobal));
    }
    [[nodiscard]] HDROP Files() const { return static_cast<HDROP>(got_ ? medium_.hGlobal : nullptr); }

  private:
    STGMEDIUM medium_{};
    bool got_ = false;
    const char* bytes_ = nullptr;
};

/// Keeps a target alive during a call: its owner may release it in a message pumped meanwhile.
class OwnReference {
  public:
    explicit OwnReference(IUnknown& object) : object_(object) { object_.AddRef(); }
    OwnReference(const OwnReference&) = delete;
    OwnReference& operator=(const OwnReference&) = delete;
    ~OwnReference() { object_.Release(); }

  private:
    IUnknown& object_;
};

}  // namespace

OleSession::~OleSession() {
    if (started_) OleUninitialize();
}

bool OleSession::Start() {
    if (!started_) started_ = SUCCEEDED(OleInitialize(nullptr));
    return started_;
}

bool OffersFormat(IDataObject* data, CLIPFORMAT format) {
    FORMATETC wanted = GlobalMemory(format);
    return data->QueryGetData(&wanted) == S_OK;
}

std::string DroppedBytes(IDataObject* data, CLIPFORMAT format) {
    return std::string(DroppedMemory(data, format).Bytes());
}

std::vector<std::u16string> DroppedFiles(IDataObject* data) {
    std::vector<std::u16string> files;
    if (!OffersFormat(data, CF_HDROP)) return files;
    const DroppedMemory memory(data, CF_HDROP);
    const HDROP drop = memory.Files();
    constexpr UINT kCount = 0xFFFFFFFF;
    const UINT count = drop != nullptr ? DragQueryFileW(drop, kCount, nullptr, 0) : 0;
    for (UINT i = 0; i < count; ++i) {
        std::u16string path(DragQueryFileW(drop, i, nullptr, 0) + std::size_t{1}, u'\0');
        path.resize(DragQueryFileW(drop, i, WideBuffer(path), static_cast<UINT>(path.size())));
        files.push_back(std::move(path));
    }
    return files;
}

HRESULT STDMETHODCALLTYPE DropTarget::QueryInterface(REFIID id, void** object) {
    if (object == nullptr) return E_POINTER;
    if (!IsEqualIID(id, IID_IUnknown) && !IsEqualIID(id, IID_IDropTarget)) {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    *object = static_cast<IDropTarget*>(this);
    AddRef();
    return S_OK;
}

ULONG STDMETHODCALLTYPE DropTarget::AddRef() {
    return ++references_;
}

ULONG STDMETHODCALLTYPE DropTarget::Release() {
    const ULONG left = --references_;
    if (left == 0) delete this;  // the only kind of object that OLE owns
    return left;
}

bool DropTarget::TakesDrops() const {
    // Both calls return FALSE for a window that no longer exists.
    return connected_ && IsWindowEnabled(window_) != 0 && IsWindowEnabled(GetAncestor(window_, GA_ROOT)) != 0;
}

template <typename Handler>
HRESULT DropTarget::Answer(DWORD* effect, Handler handler) {
    if (effect == nullptr) return E_INVALIDARG;
    const DWORD offered = std::exchange(*effect, DWORD{DROPEFFECT_NONE});
    const OwnReference whileTheHandlerRuns(*this);
    try {
        if (TakesDrops()) *effect = handler(offered);
        return S_OK;
    } catch (...) {
        return E_UNEXPECTED;
    }
}

HRESULT STDMETHODCALLTYPE DropTarget::DragEnter(IDataObject* data, DWORD /*keys*/, POINTL at, DWORD* effect) {
    if (data == nullptr) return E_INVALIDARG;
    return Answer(effect, [&](DWORD offered) { return OnEnter(data, Point{at.x, at.y}, offered); });
}

HRESULT STDMETHODCALLTYPE DropTarget::DragOver(DWORD /*keys*/, POINTL at, DWORD* effect) {
    return Answer(effect, [&](DWORD offered) { return OnOver(Point{at.x, at.y}, offered); });
}

HRESULT STDMETHODCALLTYPE DropTarget::DragLeave() {
    OnLeave();
    return S_OK;
}

HRESULT STDMETHODCALLTYPE DropTarget::Drop(IDataObject* data, DWORD /*keys*/, POINTL at, DWORD* effect) {
    if (data == nullptr) return E_INVALIDARG;
    return Answer(effect, [&](DWORD offered) { return OnDrop(data, Point{at.x, at.y}, offered); });
}

}  // namespace quillo
