#pragma once

namespace quillo {

class Clock;
class LocaleText;

/// The time, and how the user writes it.
struct DateServices {
    Clock& clock;
    LocaleText& locale;
};

}  // namespace quillo
