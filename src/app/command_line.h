#pragma once

#include <string>
#include <string_view>

namespace quillo {

class Shell;

/// The request in a command line.
struct Command {
    enum class Kind {
        None,
        Close,     ///< end the program
        New,       ///< create a new note
        OpenFile,  ///< open `text` as a note
        Unknown,   ///< name `text` in a message
    };
    Kind kind = Kind::None;
    std::u16string text;

    friend bool operator==(const Command&, const Command&) = default;
};

/// The command line of the process that has become the running instance.
[[nodiscard]] Command ClassifyFirstStart(std::u16string_view commandLine);

/// A command line that another process sent to the running instance. Only its first characters matter: "/newer" creates
/// a new note.
[[nodiscard]] Command ClassifyReceived(std::u16string_view text);

/// The command line to send to the running instance, trimmed. A path is made absolute, because it is relative to the
/// current folder of the process that received it.
[[nodiscard]] std::u16string CommandLineToSend(std::u16string_view commandLine, Shell& shell);

}  // namespace quillo
