#pragma once

#include <string>
#include <string_view>

namespace quillo {

/// The parts of a program shortcut.
struct ShortcutParts {
    std::u16string file;
    std::u16string arguments;
    friend bool operator==(const ShortcutParts&, const ShortcutParts&) = default;
};

/// A path, or a path in quotes followed by arguments.
[[nodiscard]] ShortcutParts SplitShortcut(std::u16string_view shortcut);

/// Whether the shortcut is short enough for the system to start: 260 characters for a file and 32,767 for a command
/// line, each with the NUL at its end. A longer file overruns one of the shell's buffers, so such a shortcut is neither
/// stored nor run.
[[nodiscard]] bool ShortcutFits(std::u16string_view shortcut);

}  // namespace quillo
