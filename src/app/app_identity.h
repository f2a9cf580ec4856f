#pragma once

#include <string>
#include <string_view>

namespace quillo {

/// The maker's site: the host name alone, as mails, printed pages and the about box show it. Under a reserved name, so
/// that no stranger is ever called; whoever publishes the program puts their own here, and nowhere else.
inline constexpr std::u16string_view kMakerHost = u"www.marrowind.example";

/// Whose the program is.
inline constexpr std::u16string_view kMakerNotice = u"\u00A9 2026 Marrowind";

/// The address of the maker's site, as a browser opens it.
[[nodiscard]] inline std::u16string MakerAddress() {
    std::u16string address = u"http://";
    return address.append(kMakerHost);
}

}  // namespace quillo
