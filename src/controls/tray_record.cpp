#include "controls/tray_record.h"

#include <algorithm>
#include <span>
#include <string>

#include "ports/locale_text.h"
#include "util/unicode.h"

namespace quillo {
namespace {

using Record32 = TrayRecordOf<std::uint32_t>;
using Record64 = TrayRecordOf<std::uint64_t>;

static_assert(sizeof(Record32) == 488);
static_assert(offsetof(Record32, size) == 0);
static_assert(offsetof(Record32, window) == 4);
static_assert(offsetof(Record32, id) == 8);
static_assert(offsetof(Record32, flags) == 12);
static_assert(offsetof(Record32, callbackMessage) == 16);
static_assert(offsetof(Record32, icon) == 20);
static_assert(offsetof(Record32, tip) == 24);
static_assert(offsetof(Record32, state) == 152);
static_assert(offsetof(Record32, stateMask) == 156);
static_assert(offsetof(Record32, info) == 160);
static_assert(offsetof(Record32, timeoutOrVersion) == 416);
static_assert(offsetof(Record32, infoTitle) == 420);
static_assert(offsetof(Record32, infoFlags) == 484);

static_assert(sizeof(Record64) == 504);
static_assert(offsetof(Record64, size) == 0);
static_assert(offsetof(Record64, window) == 8);
static_assert(offsetof(Record64, id) == 16);
static_assert(offsetof(Record64, flags) == 20);
static_assert(offsetof(Record64, callbackMessage) == 24);
static_assert(offsetof(Record64, icon) == 32);
static_assert(offsetof(Record64, tip) == 40);
static_assert(offsetof(Record64, state) == 168);
static_assert(offsetof(Record64, stateMask) == 172);
static_assert(offsetof(Record64, info) == 176);
static_assert(offsetof(Record64, timeoutOrVersion) == 432);
static_assert(offsetof(Record64, infoTitle) == 436);
static_assert(offsetof(Record64, infoFlags) == 500);

/// The bytes of the tip that are written.
constexpr std::size_t kTipBytes = 64;

void WriteText(std::span<char> field, std::size_t mostCharacters, std::u16string_view text, LocaleText& locale) {
    const std::size_t mostBytes = field.size() - 1;
    // Intended: a pair of UTF-16 units is two characters here, of which the first alone becomes "?".
    text = text.substr(0, mostCharacters);
    std::string bytes = locale.ToNarrow(text).value_or(std::string());
    // Shortened by characters, not bytes: half of a double-byte character would absorb the NUL after it.
    while (bytes.size() > mostBytes) {
        text = CutText(text, text.size() - 1);
        bytes = locale.ToNarrow(text).value_or(std::string());
    }
    std::fill(std::copy(bytes.begin(), bytes.end(), field.begin()), field.end(), '\0');
}

}  // namespace

template <typename HandleWord>
void FillForAdding(TrayRecordOf<HandleWord>& record, HandleWord window, HandleWord icon) {
    record.size = sizeof record;
    record.window = window;
    record.id = kTrayIconId;
    record.flags = kTrayFlags;
    record.callbackMessage = kTrayCallbackMessage;
    record.icon = icon;
    record.timeoutOrVersion = kTrayVersion;
}

template <typename HandleWord>
void WriteTip(TrayRecordOf<HandleWord>& record, std::u16string_view text, LocaleText& locale) {
    WriteText(std::span(record.tip).template first<kTipBytes>(), kMostTipCharacters, text, locale);
}

template <typename HandleWord>
void WriteBalloon(TrayRecordOf<HandleWord>& record, std::u16string_view text, std::u16string_view title,
                  std::uint32_t iconType, std::int32_t timeoutSeconds, LocaleText& locale) {
    record.timeoutOrVersion = static_cast<std::uint32_t>(timeoutSeconds);
    WriteText(record.info, kMostInfoCharacters, text, locale);
    WriteText(record.infoTitle, kMostInfoTitleCharacters, title, locale);
    record.infoFlags = iconType;
}

// Every build has both layouts, so that any machine can test them.
template void FillForAdding(Record32&, std::uint32_t, std::uint32_t);
template void FillForAdding(Record64&, std::uint64_t, std::uint64_t);
template void WriteTip(Record32&, std::u16string_view, LocaleText&);
template void WriteTip(Record64&, std::u16string_view, LocaleText&);
template void WriteBalloon(Record32&, std::u16string_view, std::u16string_view, std::uint32_t, std::int32_t,
                           LocaleText&);
template void WriteBalloon(Record64&, std::u16string_view, std::u16string_view, std::uint32_t, std::int32_t,
                           LocaleText&);

}  // namespace quillo
