#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <type_traits>

namespace quillo {

class LocaleText;

/// The shell's notification-icon record in the version that introduced balloons, with narrow text. `HandleWord` is an
/// unsigned integer of a handle's size: the fields have their natural offsets, 488 bytes with 32-bit handles and 504
/// with 64-bit ones.
template <typename HandleWord>
struct TrayRecordOf {
    std::uint32_t size;
    HandleWord window;  ///< receives the callback message
    std::uint32_t id;
    std::uint32_t flags;
    std::uint32_t callbackMessage;
    HandleWord icon;
    char tip[128];  ///< only the first 64 bytes are written (intended: older systems read only those)
    std::uint32_t state;
    std::uint32_t stateMask;
    char info[256];                  ///< the balloon's text
    std::uint32_t timeoutOrVersion;  ///< the version when an icon is added, seconds when a balloon is shown
    char infoTitle[64];
    std::uint32_t infoFlags;  ///< the balloon's icon
};

/// A window or an icon of the system, as stored in the record; 0 is none.
using TrayHandle = std::conditional_t<sizeof(void*) == sizeof(std::uint32_t), std::uint32_t, std::uint64_t>;
using TrayRecord = TrayRecordOf<TrayHandle>;

inline constexpr std::uint32_t kTrayIconId = 1;
/// Message, icon and tip are valid.
inline constexpr std::uint32_t kTrayFlags = 7;
inline constexpr std::uint32_t kTrayBalloonFlag = 16;
/// The number of the mouse-move message: a window that is never shown receives no other message with it.
inline constexpr std::uint32_t kTrayCallbackMessage = 512;
inline constexpr std::uint32_t kTrayVersion = 5;

/// In characters, which are UTF-16 units, without the NUL.
inline constexpr std::size_t kMostTipCharacters = 63;
inline constexpr std::size_t kMostInfoCharacters = 255;
inline constexpr std::size_t kMostInfoTitleCharacters = 63;

/// Fills everything but the texts, for adding the icon.
template <typename HandleWord>
void FillForAdding(TrayRecordOf<HandleWord>& record, HandleWord window, HandleWord icon);

// Text is cut silently: to its first characters, and further if those need more bytes in the code page than the field
// has. A character of several bytes is kept whole or dropped, and a NUL always follows.
template <typename HandleWord>
void WriteTip(TrayRecordOf<HandleWord>& record, std::u16string_view text, LocaleText& locale);
template <typename HandleWord>
void WriteBalloon(TrayRecordOf<HandleWord>& record, std::u16string_view text, std::u16string_view title,
                  std::uint32_t iconType, std::int32_t timeoutSeconds, LocaleText& locale);

}  // namespace quillo
