#pragma once

#include <cstddef>
#include <string>

namespace quillo::e2e {

/// About 50 kB that begin with the note's number; the letter distinguishes versions.
[[nodiscard]] inline std::string LongText(std::size_t number, char letter) {
    constexpr int kLines = 1000;
    const std::string line = std::to_string(number) + std::string(48, letter);
    std::string text = line;
    for (int i = 1; i < kLines; ++i) text += "\r\n" + line;
    return text;
}

}  // namespace quillo::e2e
