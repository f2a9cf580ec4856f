#pragma once

#include <string>
#include <vector>

#include "host.h"

namespace quillo::qln {

/// The values of the command line.
struct Options {
    FolderChoice where;
    bool json = false;
    bool closed = false;
    std::vector<std::string> words;  ///< the words, note or files that a command works on
    std::string format;
    std::string output;
    std::string folder;  ///< of a backup
    std::string remind;
    std::string color;
    bool hidden = false;
    bool start = false;
    bool older = false;
    bool repair = false;
};

/// What every command uses.
struct Session {
    const Options& options;
    Host& host;
    Surroundings& place;

    [[nodiscard]] Console& Terminal() const { return host.Terminal(); }
};

/// Writes one line of an error message.
void Complain(Console& console, std::string_view message);

}  // namespace quillo::qln
