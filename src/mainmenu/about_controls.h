#pragma once

#include <array>
#include <string_view>

namespace quillo {

/// The parts of the about box in reading order, which is the order of the Tab key.
enum class AboutControl : int {
    Image,
    TitleLabel,
    VersionLabel,
    FreewareLabel,
    WebsiteLabel,
    WebLink,
    DividerLine,
    UpdateButton,
    HelpButton,
    CloseButton,
    Count
};

inline constexpr std::u16string_view kAboutCaption = u"About Quillo";

/// The exact captions. The maker's notice follows the title; version and link are filled in.
inline constexpr std::array<std::u16string_view, static_cast<std::size_t>(AboutControl::Count)> kAboutTexts{
    u"Notes in three colors and a quill",  // what a screen reader says about the picture
    u"Quillo ",
    u"",
    u"This program is freeware.  For more information, visit our website:",
    u"Website:",
    u"",
    u"",
    u"Check for updates",
    u"Help",
    u"Close",
};

[[nodiscard]] constexpr std::u16string_view TextOf(AboutControl control) {
    return kAboutTexts[static_cast<std::size_t>(control)];
}

}  // namespace quillo
