// The cost of appending 16 characters many times, compared with std::u16string.
#include <cstdio>
#include <string>

#include "bench/stopwatch.h"
#include "util/string_builder.h"

int main() {
    const std::u16string piece = u"sixteen letters.";
    std::printf("%12s %14s %14s %8s\n", "appends", "builder ns", "u16string ns", "ratio");
    for (const int appends : {10'000, 100'000, 1'000'000}) {
        const auto [builder, plain] = quillo::bench::Compare(
            11, 1,
            [&] {
                quillo::CStringBuilder text;
                for (int i = 0; i < appends; ++i) text.Append(piece);
                quillo::bench::Keep(text);
            },
            [&] {
                std::u16string text;
                for (int i = 0; i < appends; ++i) text.append(piece);
                quillo::bench::Keep(text);
            });
        std::printf("%12d %14.2f %14.2f %8.2f\n", appends, builder / appends * 1e9, plain / appends * 1e9,
                    builder / plain);
    }
    return 0;
}
