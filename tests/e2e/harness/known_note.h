#pragma once

#include <chrono>
#include <cstddef>
#include <cwchar>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillo::e2e {

using Moment = std::chrono::steady_clock::time_point;

/// Whether the bytes end as a note file does.
[[nodiscard]] inline bool IsWhole(const std::string& bytes) {
    constexpr std::string_view kEnd = "</quillo>";
    return bytes.size() > kEnd.size() && bytes.compare(bytes.size() - kEnd.size(), kEnd.size(), kEnd) == 0;
}

/// "note 12.3 ...": the number of the note, or nothing for a text that does not belong to the campaign.
[[nodiscard]] inline std::optional<int> NumberOf(const std::wstring& text) {
    if (text.rfind(L"note ", 0) != 0) return std::nullopt;
    return static_cast<int>(std::wcstol(text.c_str() + 5, nullptr, 10));
}

/// The possible content of one note after the next start.
struct KnownNote {
    struct Version {
        std::wstring text;
        Moment written;
    };
    std::vector<Version> versions;
    /// The first version that may be on the disk; older ones have been replaced. Nothing for a note that is on no disk.
    std::optional<std::size_t> stored;
    bool deleted = false;  ///< possibly deleted

    [[nodiscard]] bool MayHold(const std::wstring& text) const {
        for (std::size_t i = stored.value_or(0); i < versions.size(); ++i) {
            if (versions[i].text == text) return true;
        }
        return false;
    }
};

/// The places in which the texts of one note were found.
struct Places {
    std::vector<std::wstring> open;
    std::vector<std::wstring> closed;
    std::vector<std::wstring> recycled;
};

}  // namespace quillo::e2e
