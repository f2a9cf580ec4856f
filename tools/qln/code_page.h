#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillo::qln {

/// A code page whose characters are single bytes, or UTF-8.
class CodePage {
  public:
    static constexpr int kWesternEuropean = 1252;
    static constexpr int kUtf8 = 65001;

    /// Nothing for an unsupported code page: those of East Asia.
    [[nodiscard]] static std::optional<CodePage> Find(int number);

    [[nodiscard]] std::u16string Decode(std::string_view bytes) const;
    /// Characters that the code page lacks become "?".
    [[nodiscard]] std::string Encode(std::u16string_view text) const;
    [[nodiscard]] bool HasSingleBytes() const { return !utf8_; }

  private:
    struct Reverse {
        char16_t unit;
        char byte;
    };
    bool utf8_ = false;
    std::array<char16_t, 256> units_{};
    std::vector<Reverse> reverse_;  // by unit
};

}  // namespace quillo::qln
