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
    : DropTarget(textBox), locale_(locale), shell_(shell), insert_(std::move(insert)) {}

DWORD NoteDropTarget::OnEnter(IDataObject* data, Point at, DWORD offered) {
    welcome_ = FormatOf(data) != DropFormat::None;
    return OnOver(at, offered);
}

DWORD NoteDropTarget::OnOver(Point /*at*/, DWORD offered) {
    if (!welcome_) return DROPEFFECT_NONE;
    // Copying has priority, regardless of keys, so that the source keeps its data. Links offer nothing but a link,
    // and some sources nothing but a move.
    for (const DWORD effect : {DROPEFFECT_COPY, DROPEFFECT_LINK, DROPEFFECT_MOVE}) {
        if ((offered & effect) != 0) return effect;
    }
    return DROPEFFECT_NONE;
}

DWORD NoteDropTarget::OnDrop(IDataObject* data, Point at, DWORD offered) {
    const DropFormat format = FormatOf(data);
    welcome_ = format != DropFormat::None;
    const DWORD effect = OnOver(at, offered);
    welcome_ = false;
    if (effect == DROPEFFECT_NONE) return effect;
    const std::u16string text = TextOf(data, format);
    // The calls to the source have pumped messages: the note may be closed or busy by now.
    const bool inserted = !text.empty() && TakesDrops() && insert_(text);
    // A source that is told of a move deletes its data.
    return inserted && effect != DROPEFFECT_MOVE ? effect : DWORD{DROPEFFECT_NONE};
}

DropFormat NoteDropTarget::FormatOf(IDataObject* data) const {
    DropOffer offer;
    offer.link = OffersFormat(data, LinkFormat());
    offer.text = OffersFormat(data, CF_UNICODETEXT) || OffersFormat(data, CF_TEXT);
    offer.files = OffersFormat(data, CF_HDROP);
    // Checked last: the calls before it pump messages.
    return ChooseDropFormat(offer, TakesDrops());
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
