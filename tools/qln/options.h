#pragma once

#include <string>
#include <vector>

#include "host.h"

namespace quillo::qln {

/// What the command line asks for.
struct Options {
    FolderChoice where;
    bool json = false;
    bool closed = false;
    std::vector<std::string> words;  ///< what a command works on: words, a note, files
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

/// What a command works with.
struct Session {
    const Options& options;
    Host& host;
    Surroundings& place;

    [[nodiscard]] Console& Terminal() const { return host.Terminal(); }
};

/// One line of an error.
void Complain(Console& console, std::string_view message);

}  // namespace quillo::qln
