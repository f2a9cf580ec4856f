#include "platform/win_locale_text.h"

#include <array>
#include <cmath>

#include "platform/late_library.h"
#include "platform/wide.h"

namespace quillo {
namespace {

/// Pieces small enough for the int counts of the conversion calls.
constexpr std::size_t kLongestConversion = 0x3FFF'FFFF;

std::u16string FromCodePage(UINT codePage, std::string_view bytes) {
    if (bytes.empty() || bytes.size() > kLongestConversion) return {};
    const int size = static_cast<int>(bytes.size());
    // A code page never yields more UTF-16 units than bytes.
    std::u16string text(bytes.size(), u'\0');
    const int length = MultiByteToWideChar(codePage, 0, bytes.data(), size, WideBuffer(text), size);
    text.resize(static_cast<std::size_t>(length));
    return text;
}

/// Whole numbers need no locale: all of them read a sign and digits alike. Keeps the automation library out of
/// start-up.
std::optional<double> ParsePlainNumber(std::u16string_view text) {
    const bool negative = !text.empty() && text.front() == u'-';
    const std::u16string_view digits = text.substr(negative ? 1 : 0);
    constexpr std::size_t kMostDigits = 15;
    if (digits.empty() || digits.size() > kMostDigits) return std::nullopt;
    double value = 0;
    for (const char16_t c : digits) {
        if (c < u'0' || c > u'9') return std::nullopt;
        value = value * 10 + (c - u'0');
    }
    return negative ? -value : value;
}

SYSTEMTIME ToSystemTime(DaySerial when) {
    const CivilTime civil = ToCivilTime(when);
    SYSTEMTIME time{};
    time.wYear = static_cast<WORD>(civil.year);
    time.wMonth = static_cast<WORD>(civil.month);
    time.wDay = static_cast<WORD>(civil.day);
    time.wHour = static_cast<WORD>(civil.hour);
    time.wMinute = static_cast<WORD>(civil.minute);
    time.wSecond = static_cast<WORD>(civil.second);
    return time;
}

using FormattedText = std::array<wchar_t, 128>;

}  // namespace

std::optional<std::string> WinLocaleText::ToNarrow(std::u16string_view text) {
    if (text.empty()) return std::string();
    if (text.size() > kLongestConversion) return std::nullopt;
    const int size = static_cast<int>(text.size());
    // UTF-8 and UTF-7 as the system's code page refuse the flag and the default character; they need neither.
    const bool unicodePage = GetACP() == CP_UTF8 || GetACP() == CP_UTF7;
    const DWORD flags = unicodePage ? 0 : WC_NO_BEST_FIT_CHARS;
    const char* unknown = unicodePage ? nullptr : "?";
    const int length = WideCharToMultiByte(CP_ACP, flags, WideData(text), size, nullptr, 0, unknown, nullptr);
    if (length <= 0) return std::nullopt;
    std::string bytes(static_cast<std::size_t>(length), '\0');
    const int written =
        WideCharToMultiByte(CP_ACP, flags, WideData(text), size, bytes.data(), length, unknown, nullptr);
    return written == length ? std::optional(std::move(bytes)) : std::nullopt;
}

std::u16string WinLocaleText::FromNarrow(std::string_view bytes) {
    return FromCodePage(CP_ACP, bytes);
}

bool WinLocaleText::HasSingleByteCodePage() {
    CPINFO page{};
    return GetCPInfo(CP_ACP, &page) != 0 && page.MaxCharSize == 1;
}

std::u16string WinLocaleText::ToLower(std::u16string_view text) {
    std::u16string lower(text);
    CharLowerBuffW(WideBuffer(lower), static_cast<DWORD>(lower.size()));
    return lower;
}

std::u16string WinLocaleText::DecimalSeparator() {
    std::array<wchar_t, 8> separator{};
    GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, separator.data(), static_cast<int>(separator.size()));
    return std::u16string(FromWide(separator.data()));
}

std::optional<double> WinLocaleText::ParseNumber(std::u16string_view text) {
    if (const auto plain = ParsePlainNumber(text)) return plain;
    static LateFunction<HRESULT WINAPI(const wchar_t*, LCID, ULONG, double*)> fromText(L"oleaut32.dll", "VarR8FromStr");
    double value = 0;
    if (text.empty() || fromText.Get() == nullptr) return std::nullopt;
    if (FAILED(fromText.Get()(Wide(std::u16string(text)), LOCALE_USER_DEFAULT, 0, &value))) return std::nullopt;
    if (!std::isfinite(value)) return std::nullopt;
    return value;
}

std::optional<DaySerial> WinLocaleText::ParseDate(std::u16string_view text) {
    static LateFunction<HRESULT WINAPI(const wchar_t*, LCID, ULONG, double*)> fromText(L"oleaut32.dll",
                                                                                       "VarDateFromStr");
    double value = 0;
    if (text.empty() || fromText.Get() == nullptr) return std::nullopt;
    if (FAILED(fromText.Get()(Wide(std::u16string(text)), LOCALE_USER_DEFAULT, 0, &value))) return std::nullopt;
    return DaySerial{value};
}

std::u16string WinLocaleText::ShortDate(DaySerial when) {
    const SYSTEMTIME time = ToSystemTime(when);
    FormattedText text{};
    GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &time, nullptr, text.data(), static_cast<int>(text.size()));
    return std::u16string(FromWide(text.data()));
}

std::u16string WinLocaleText::LongTime(DaySerial when) {
    const SYSTEMTIME time = ToSystemTime(when);
    FormattedText text{};
    GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &time, nullptr, text.data(), static_cast<int>(text.size()));
    return std::u16string(FromWide(text.data()));
}

std::u16string WinLocaleText::GeneralDate(DaySerial when) {
    const CivilTime civil = ToCivilTime(when);
    const bool dateOnly = civil.hour == 0 && civil.minute == 0 && civil.second == 0;
    const bool timeOnly = civil.year == 1899 && civil.month == 12 && civil.day == 30;
    if (timeOnly) return LongTime(when);
    if (dateOnly) return ShortDate(when);
    return ShortDate(when) + u' ' + LongTime(when);
}

}  // namespace quillo
