#include "notes/note_drop.h"

#include "app/base/note_names.h"
#include "ports/locale_text.h"
#include "ports/shell.h"
#include "util/string_builder.h"

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
    CStringBuilder lines;
    for (const std::u16string& path : paths) lines.Append(ResolveShortcut(path, shell)).Append(u"\r\n");
    return lines.ToString();
}

}  // namespace quillo
