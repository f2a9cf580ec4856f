#include "iso_time.h"

#include <array>
#include <cstdio>

namespace quillo::qln {
namespace {

/// Reads that many digits and removes them from `text`.
std::optional<int> TakeNumber(std::u16string_view& text, std::size_t digits) {
    if (text.size() < digits) return std::nullopt;
    int number = 0;
    for (std::size_t i = 0; i < digits; ++i) {
        if (text[i] < u'0' || text[i] > u'9') return std::nullopt;
        number = number * 10 + (text[i] - u'0');
    }
    text.remove_prefix(digits);
    return number;
}

bool Take(std::u16string_view& text, std::u16string_view signs) {
    if (text.empty() || signs.find(text.front()) == std::u16string_view::npos) return false;
    text.remove_prefix(1);
    return true;
}

bool TakeDate(std::u16string_view& text, CivilTime& time) {
    const auto year = TakeNumber(text, 4);
    if (!year || !Take(text, u"-")) return false;
    const auto month = TakeNumber(text, 2);
    if (!month || !Take(text, u"-")) return false;
    const auto day = TakeNumber(text, 2);
    if (!day || *year < 100 || *month < 1 || *month > 12 || *day < 1) return false;
    time.year = *year;
    time.month = *month;
    time.day = *day;
    return true;
}

bool TakeTime(std::u16string_view& text, CivilTime& time) {
    const auto hour = TakeNumber(text, 2);
    if (!hour || !Take(text, u":")) return false;
    const auto minute = TakeNumber(text, 2);
    const auto second = minute && Take(text, u":") ? TakeNumber(text, 2) : std::optional(0);
    if (!minute || !second || *hour > 23 || *minute > 59 || *second > 59) return false;
    time.hour = *hour;
    time.minute = *minute;
    time.second = *second;
    return true;
}

}  // namespace

std::string FormatIsoTime(DaySerial when, char separator) {
    const CivilTime time = ToCivilTime(when);
    std::array<char, 96> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02d-%02d%c%02d:%02d:%02d", time.year, time.month, time.day,
                  separator, time.hour, time.minute, time.second);
    return text.data();
}

std::string FormatIsoMinute(DaySerial when) {
    return FormatIsoTime(when, ' ').substr(0, 16);
}

std::optional<DaySerial> ParseIsoTime(std::u16string_view text) {
    CivilTime time;
    if (!TakeDate(text, time)) return std::nullopt;
    if (!text.empty() && !(Take(text, u" Tt") && TakeTime(text, time) && text.empty())) return std::nullopt;
    const DaySerial serial = ToDaySerial(time);
    if (ToCivilTime(serial) != time) return std::nullopt;
    return serial;
}

}  // namespace quillo::qln
