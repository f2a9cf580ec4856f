// How long one phrase takes to read, by kind of phrase. The last three need the platform's conversion, which dominates
// their cost.
#include <cstdio>
#include <limits>
#include <string>
#include <string_view>

#include "bench/stopwatch.h"
#include "reminders/reminder_phrase.h"
#ifdef _WIN32
#include "platform/win_locale_text.h"
#else
#include "testing/fake_locale_text.h"
#endif

int main() {
#ifdef _WIN32
    quillo::WinLocaleText locale;
#else
    quillo::FakeLocaleText locale;
#endif
    constexpr std::u16string_view kPhrases[] = {
        u"noon", u"At Midnight", u"tomorrow", u"in 20 minutes",     u"In an hour", u"in 2147483 s",
        u"3:00", u"15:30",       u"15:30:05", u"whenever you like", u"9 am",       u"11/20/2036 9:00 am"};
    const quillo::DaySerial start = quillo::ToDaySerial({2026, 11, 15, 14, 10, 0});
    std::printf("%-20s %10s\n", "phrase", "ns");
    for (const std::u16string_view phrase : kPhrases) {
        double best = std::numeric_limits<double>::max();
        for (int run = 0; run < 11; ++run) {
            quillo::DaySerial now = start;
            const double seconds = quillo::bench::Measure(20'000, [&] {
                now.days += 1;
                const quillo::ReminderPhrase read = quillo::ParseReminderPhrase(phrase, now, locale);
                quillo::bench::Keep(read);
            });
            best = std::min(best, seconds);
        }
        std::printf("%-20s %10.1f\n", std::string(phrase.begin(), phrase.end()).c_str(), best * 1e9);
    }
    return 0;
}
