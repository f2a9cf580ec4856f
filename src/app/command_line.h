#pragma once

#include <string>
#include <string_view>

namespace quillo {

class Shell;

/// What a command line asks for.
struct Command {
    enum class Kind {
        None,
        Close,     ///< end the program
        New,       ///< make a new note
        OpenFile,  ///< open `text` as a note
        Unknown,   ///< `text` is to be named in a message
    };
    Kind kind = Kind::None;
    std::u16string text;

    friend bool operator==(const Command&, const Command&) = default;
};

/// The command line of the process that has become the running instance.
[[nodiscard]] Command ClassifyFirstStart(std::u16string_view commandLine);

/// A command line that another process sent to the running instance. Only its first characters count: "/newer" makes
/// a new note.
[[nodiscard]] Command ClassifyReceived(std::u16string_view text);

/// The command line to send to the running instance: trimmed, a path made absolute, for it is relative to the folder
/// of the process that was given it.
[[nodiscard]] std::u16string CommandLineToSend(std::u16string_view commandLine, Shell& shell);

}  // namespace quillo
