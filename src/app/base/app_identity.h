#pragma once

#include <string>
#include <string_view>

#include "identity.h"

namespace quillo {

/// The publisher's site: only the host name, as mails, printed pages and the about box show it.
inline constexpr std::u16string_view kMakerHost = u"" QUILLO_HOST;

/// The publisher's copyright notice.
inline constexpr std::u16string_view kMakerNotice = u"\u00A9 " QUILLO_COPYRIGHT_YEAR " " QUILLO_PUBLISHER;

/// The name under which an installer registers the program's name and icon for balloons and task bar buttons.
inline constexpr std::u16string_view kAppId = u"" QUILLO_APP_ID;

/// The address of the publisher's site for a browser.
[[nodiscard]] inline std::u16string MakerAddress() {
    std::u16string address = u"http://";
    return address.append(kMakerHost);
}

}  // namespace quillo
