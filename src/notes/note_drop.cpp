#include "notes/note_drop.h"

#include "app/note_names.h"
#include "ports/locale_text.h"
#include "ports/shell.h"

namespace quillo {

DropFormat ChooseDropFormat(const DropOffer& offer, bool dragAndDrop) {
    if (!dragAndDrop) return DropFormat::None;
    if (offer.link) return DropFormat::Link;
    if (offer.text) return DropFormat::Text;
    return offer.files ? DropFormat::Files : DropFormat::None;
}

std::u16string TextOfDroppedLink(std::string_view bytes, LocaleText& locale) {
    return locale.FromNarrow(bytes.substr(0, bytes.find('\0')));
}

std::u16string TextOfDroppedText(std::u16string_view text) {
    return std::u16string(text.substr(0, text.find(u'\0')));
}

std::u16string TextOfDroppedFiles(const std::vector<std::u16string>& paths, Shell& shell) {
    std::u16string lines;
    for (const std::u16string& path : paths) {
        lines += ResolveShortcut(path, shell);
        lines += u"\r\n";
    }
    return lines;
}

}  // namespace quillo
