#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillo::qln {

/// The program's input and output; UTF-8.
class Console {
  public:
    virtual ~Console() = default;
    virtual void Out(std::string_view text) = 0;
    virtual void Error(std::string_view text) = 0;
    /// Whether a person reads the output: then matches are marked, and no content of a note may act on the terminal.
    [[nodiscard]] virtual bool IsTerminal() const = 0;
    /// The whole standard input, at most `most` bytes and one more.
    [[nodiscard]] virtual std::string ReadInput(std::size_t most) = 0;
};

}  // namespace quillo::qln
