#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillo::qln {

/// Where the program's words go to and come from; UTF-8.
class Console {
  public:
    virtual ~Console() = default;
    virtual void Out(std::string_view text) = 0;
    virtual void Error(std::string_view text) = 0;
    /// Whether somebody reads along: then matches are marked, and nothing that a note holds may act on the terminal.
    [[nodiscard]] virtual bool IsTerminal() const = 0;
    /// All of the standard input, `most` bytes and one more at most.
    [[nodiscard]] virtual std::string ReadInput(std::size_t most) = 0;
};

}  // namespace quillo::qln
