#pragma once

namespace quillo {

/// The backup timer ticks once a minute; every fifth tick saves.
[[nodiscard]] constexpr bool IsBackupTick(int tick) {
    constexpr int kTicksBetweenBackups = 5;
    return tick % kTicksBetweenBackups == 0;
}

/// What a click on the icon beside the clock does.
enum class IconClick {
    Ignored,
    OpensMenu,
    CreatesNote  ///< and closes the menu
};

/// `busy` while the program starts, quits or shows a modal dialog.
[[nodiscard]] constexpr IconClick IconClickOf(bool busy, bool menuIsShowing) {
    if (busy) return IconClick::Ignored;
    return menuIsShowing ? IconClick::CreatesNote : IconClick::OpensMenu;
}

/// What a change of the Windows session means for reminders.
enum class SessionChange { Nothing, Away, Back };

/// `code` is the system's number of the change.
[[nodiscard]] constexpr SessionChange SessionChangeOf(unsigned code) {
    constexpr unsigned kConsoleConnect = 1;
    constexpr unsigned kConsoleDisconnect = 2;
    constexpr unsigned kRemoteConnect = 3;  // the user works on another machine
    if (code == kConsoleDisconnect) return SessionChange::Away;
    return code == kConsoleConnect || code == kRemoteConnect ? SessionChange::Back : SessionChange::Nothing;
}

}  // namespace quillo
