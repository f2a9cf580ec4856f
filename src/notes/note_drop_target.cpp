#include "notes/note_drop_target.h"

#include <cstring>
#include <vector>

#include "platform/wide.h"
#include "ports/locale_text.h"
#include "ports/shell.h"

// After windows.h.
#include <shellapi.h>

namespace quillo {
namespace {

FORMATETC GlobalMemory(CLIPFORMAT format) {
    return FORMATETC{format, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
}

bool Offers(IDataObject* data, CLIPFORMAT format) {
    FORMATETC wanted = GlobalMemory(format);
    return data->QueryGetData(&wanted) == S_OK;
}

/// Data handed over in global memory, released at the end of the scope.
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

std::u16string TextIn(std::string_view bytes) {
    std::u16string text(bytes.size() / sizeof(char16_t), u'\0');
    std::memcpy(text.data(), bytes.data(), text.size() * sizeof(char16_t));
    return text;
}

std::vector<std::u16string> FilesIn(HDROP drop) {
    std::vector<std::u16string> files;
    constexpr UINT kCount = 0xFFFFFFFF;
    const UINT count = drop != nullptr ? DragQueryFileW(drop, kCount, nullptr, 0) : 0;
    for (UINT i = 0; i < count; ++i) {
        std::u16string path(DragQueryFileW(drop, i, nullptr, 0) + std::size_t{1}, u'\0');
        path.resize(DragQueryFileW(drop, i, WideBuffer(path), static_cast<UINT>(path.size())));
        files.push_back(std::move(path));
    }
    return files;
}

}  // namespace

OleSession::~OleSession() {
    if (started_) OleUninitialize();
}

bool OleSession::Start() {
    if (!started_) started_ = SUCCEEDED(OleInitialize(nullptr));
    return started_;
}

CLIPFORMAT LinkFormat() {
    static const auto format = static_cast<CLIPFORMAT>(RegisterClipboardFormatW(L"UniformResourceLocator"));
    return format;
}

NoteDropTarget::NoteDropTarget(HWND textBox, LocaleText& locale, Shell& shell,
                               std::function<void(std::u16string_view)> insert)
    : textBox_(textBox), locale_(locale), shell_(shell), insert_(std::move(insert)) {}

HRESULT STDMETHODCALLTYPE NoteDropTarget::QueryInterface(REFIID id, void** object) {
    if (object == nullptr) return E_POINTER;
    if (!IsEqualIID(id, IID_IUnknown) && !IsEqualIID(id, IID_IDropTarget)) {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    *object = static_cast<IDropTarget*>(this);
    AddRef();
    return S_OK;
}

ULONG STDMETHODCALLTYPE NoteDropTarget::AddRef() {
    return ++references_;
}

ULONG STDMETHODCALLTYPE NoteDropTarget::Release() {
    const ULONG left = --references_;
    if (left == 0) delete this;  // the one object whose owner is OLE
    return left;
}

HRESULT STDMETHODCALLTYPE NoteDropTarget::DragEnter(IDataObject* data, DWORD keys, POINTL at, DWORD* effect) {
    welcome_ = FormatOf(data) != DropFormat::None;
    return DragOver(keys, at, effect);
}

HRESULT STDMETHODCALLTYPE NoteDropTarget::DragOver(DWORD, POINTL, DWORD* effect) {
    // A copy whatever keys are held: what is dropped stays where it came from. Links offer nothing else than a link.
    const DWORD offered = *effect;
    const DWORD taken = (offered & DROPEFFECT_COPY) != 0 ? DROPEFFECT_COPY : offered & DROPEFFECT_LINK;
    *effect = welcome_ ? taken : DROPEFFECT_NONE;
    return S_OK;
}

HRESULT STDMETHODCALLTYPE NoteDropTarget::DragLeave() {
    welcome_ = false;
    return S_OK;
}

HRESULT STDMETHODCALLTYPE NoteDropTarget::Drop(IDataObject* data, DWORD keys, POINTL at, DWORD* effect) {
    const DropFormat format = FormatOf(data);
    welcome_ = format != DropFormat::None;
    DragOver(keys, at, effect);
    welcome_ = false;
    if (format == DropFormat::None || *effect == DROPEFFECT_NONE || !insert_) return S_OK;
    const std::u16string text = TextOf(data, format);
    if (!text.empty()) insert_(text);
    return S_OK;
}

DropFormat NoteDropTarget::FormatOf(IDataObject* data) const {
    DropOffer offer;
    offer.link = Offers(data, LinkFormat());
    offer.text = Offers(data, CF_UNICODETEXT) || Offers(data, CF_TEXT);
    offer.files = Offers(data, CF_HDROP);
    return ChooseDropFormat(offer, insert_ != nullptr && IsWindowEnabled(textBox_) != 0);
}

std::u16string NoteDropTarget::TextOf(IDataObject* data, DropFormat format) const {
    switch (format) {
        case DropFormat::Link:
            return TextOfDroppedLink(DroppedMemory(data, LinkFormat()).Bytes(), locale_);
        case DropFormat::Text:
            if (Offers(data, CF_UNICODETEXT)) {
                return TextOfDroppedText(TextIn(DroppedMemory(data, CF_UNICODETEXT).Bytes()));
            }
            return TextOfDroppedText(locale_.FromNarrow(DroppedMemory(data, CF_TEXT).Bytes()));
        case DropFormat::Files:
            return TextOfDroppedFiles(FilesIn(DroppedMemory(data, CF_HDROP).Files()), shell_);
        case DropFormat::None:
            break;
    }
    return {};
}

}  // namespace quillo
