#pragma once

#include <memory>
#include <optional>
#include <string>

#include "app/base/settings.h"
#include "console.h"
#include "files.h"
#include "ports/clock.h"
#include "ports/locale_text.h"
#include "ports/random.h"

namespace quillo::qln {

/// The exit codes, which the help documents.
inline constexpr int kDone = 0;
inline constexpr int kNothingFound = 1;
inline constexpr int kWrongUse = 2;
inline constexpr int kFailed = 3;

/// The channel to a running Quillo.
class Channel {
  public:
    virtual ~Channel() = default;
    [[nodiscard]] virtual bool Answers() = 0;
    /// Passes on a command line; false if no program received it.
    [[nodiscard]] virtual bool Send(const std::string& commandLine) = 0;
    /// Starts the program; false if it cannot be found or started.
    [[nodiscard]] virtual bool Start() = 0;
    /// The path of a file in the program's form; nothing if the program cannot reach the file.
    [[nodiscard]] virtual std::optional<std::string> PathForProgram(const std::string& path) = 0;
};

/// The user's options for the place of the notes.
struct FolderChoice {
    std::string folder;
    int codePage = 0;  ///< 0: the system's own
};

/// The notes of one user, and the facts about them.
struct Surroundings {
    std::string notesFolder;
    std::string closedFolder;  ///< where closed notes are saved; "" if unknown
    Settings settings;
    std::string settingsText;  ///< the stored settings, one per line
    std::unique_ptr<LocaleText> locale;
    std::unique_ptr<Channel> channel;
};

/// Everything outside the program.
class Host {
  public:
    virtual ~Host() = default;
    [[nodiscard]] virtual Console& Terminal() = 0;
    [[nodiscard]] virtual Clock& Time() = 0;
    [[nodiscard]] virtual Random& Chance() = 0;
    /// A new GUID in upper case with its braces.
    [[nodiscard]] virtual std::string NewGuid() = 0;
    /// Finds the notes; nothing, with a message in `error`, if there are none.
    [[nodiscard]] virtual std::optional<Surroundings> Find(const FolderChoice& choice, std::string& error) = 0;
    /// Adds a folder (the program's own if it is "") to the user's or the machine's PATH, or removes it; false if that
    /// is impossible.
    [[nodiscard]] virtual bool EditPath(bool add, bool machine, const std::string& folder) = 0;
};

}  // namespace quillo::qln
