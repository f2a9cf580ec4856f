#include "notes/note_drop_target.h"

#include <cstring>

#include "ports/locale_text.h"
#include "ports/shell.h"

namespace quillo {
namespace {

std::u16string TextIn(std::string_view bytes) {
    std::u16string text(bytes.size() / sizeof(char16_t), u'\0');
    std::memcpy(text.data(), bytes.data(), text.size() * sizeof(char16_t));
    return text;
}

}  // namespace

CLIPFORMAT LinkFormat() {
    static const auto format = static_cast<CLIPFORMAT>(RegisterClipboardFormatW(L"UniformResourceLocator"));
    return format;
}

NoteDropTarget::NoteDropTarget(HWND textBox, LocaleText& locale, Shell& shell,
                               std::function<bool(std::u16string_view)> insert)
    : textBox_(textBox), locale_(locale), shell_(shell), insert_(std::move(insert)) {}

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
    if (text.empty() || !insert_(text)) *effect = DROPEFFECT_NONE;
    return S_OK;
}

DropFormat NoteDropTarget::FormatOf(IDataObject* data) const {
    DropOffer offer;
    offer.link = OffersFormat(data, LinkFormat());
    offer.text = OffersFormat(data, CF_UNICODETEXT) || OffersFormat(data, CF_TEXT);
    offer.files = OffersFormat(data, CF_HDROP);
    return ChooseDropFormat(offer, insert_ != nullptr && IsWindowEnabled(textBox_) != 0);
}

std::u16string NoteDropTarget::TextOf(IDataObject* data, DropFormat format) const {
    switch (format) {
        case DropFormat::Link:
            return TextOfDroppedLink(DroppedBytes(data, LinkFormat()), locale_);
        case DropFormat::Text:
            if (OffersFormat(data, CF_UNICODETEXT)) {
                return TextOfDroppedText(TextIn(DroppedBytes(data, CF_UNICODETEXT)));
            }
            return TextOfDroppedText(locale_.FromNarrow(DroppedBytes(data, CF_TEXT)));
        case DropFormat::Files:
            return TextOfDroppedFiles(DroppedFiles(data), shell_);
        case DropFormat::None:
            break;
    }
    return {};
}

}  // namespace quillo
