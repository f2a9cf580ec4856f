#include "app/note_identifier.h"

#include <cmath>

#include "app/open_notes.h"
#include "ports/random.h"

namespace quillo {

namespace {

std::u16string Hexadecimal(unsigned number) {
    constexpr char16_t kDigits[] = u"0123456789ABCDEF";
    std::u16string text;
    do {
        text.insert(text.begin(), kDigits[number % 16]);
        number /= 16;
    } while (number != 0);
    return text;
}

}  // namespace

std::u16string NewNoteIdentifier(const OpenNotes& notes, Random& random) {
    constexpr int kMaxDraws = 16;
    constexpr double kLargest = 1'000'000;
    unsigned number = 0;
    for (int draw = 0; draw < kMaxDraws; ++draw) {
        number = static_cast<unsigned>(std::nearbyint(random.Next() * kLargest));
        std::u16string key = Hexadecimal(number);
        if (!notes.Find(key)) return key;
    }
    // So many collisions mean that the numbers are not random at all: continue from the last one.
    while (notes.Find(Hexadecimal(number))) ++number;
    return Hexadecimal(number);
}

}  // namespace quillo
