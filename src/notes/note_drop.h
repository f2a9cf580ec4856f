#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillo {

class LocaleText;
class Shell;

/// The form in which dragged data is taken, in the order of preference.
enum class DropFormat { None, Link, Text, Files };

/// What dragged data offers.
struct DropOffer {
    bool link = false;
    bool text = false;
    bool files = false;
};

/// Links before text before files; nothing unless drag and drop is on.
[[nodiscard]] DropFormat ChooseDropFormat(const DropOffer& offer, bool dragAndDrop);

/// The address in the bytes of a dragged link: the code page's text up to the first NUL.
[[nodiscard]] std::u16string TextOfDroppedLink(std::string_view bytes, LocaleText& locale);

/// Plain text up to the first NUL, which ends it in the memory that carries it.
[[nodiscard]] std::u16string TextOfDroppedText(std::u16string_view text);

/// One line per file, each ended by CR LF: its full path, or that of a shortcut's target.
[[nodiscard]] std::u16string TextOfDroppedFiles(const std::vector<std::u16string>& paths, Shell& shell);

}  // namespace quillo
