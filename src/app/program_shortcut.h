#pragma once

#include <string>
#include <string_view>

namespace quillo {

/// A program shortcut in its parts.
struct ShortcutParts {
    std::u16string file;
    std::u16string arguments;
    friend bool operator==(const ShortcutParts&, const ShortcutParts&) = default;
};

/// A path, or a path in quotes with arguments behind it.
[[nodiscard]] ShortcutParts SplitShortcut(std::u16string_view shortcut);

/// Whether the system can start something that long: 260 characters for a file and 32,767 for a command line, each with
/// the NUL at its end. The shell overruns a buffer of its own with a longer file, so that such a shortcut is neither
/// stored nor run.
[[nodiscard]] bool ShortcutFits(std::u16string_view shortcut);

}  // namespace quillo
