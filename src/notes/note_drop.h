#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillo {

class LocaleText;
class Shell;

/// The formats of dragged data that a note accepts, in the order of preference.
enum class DropFormat { None, Link, Text, Files };

/// The formats that dragged data offers.
struct DropOffer {
    bool link = false;
    bool text = false;
    bool files = false;
};

/// Links before text before files; None if drag and drop is off.
[[nodiscard]] DropFormat ChooseDropFormat(const DropOffer& offer, bool dragAndDrop);

/// The address in the bytes of a dragged link: text in the code page up to the first NUL.
[[nodiscard]] std::u16string TextOfDroppedLink(std::string_view bytes, LocaleText& locale);

/// Plain text up to the first NUL, which terminates it in its memory block.
[[nodiscard]] std::u16string TextOfDroppedText(std::u16string_view text);

/// One line per file, each ending in CR LF: its full path, or that of a shortcut's target.
[[nodiscard]] std::u16string TextOfDroppedFiles(const std::vector<std::u16string>& paths, Shell& shell);

}  // namespace quillo
