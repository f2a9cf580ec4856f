#pragma once

#include <memory>
#include <optional>
#include <string>

#include "app/settings.h"
#include "console.h"
#include "files.h"
#include "ports/clock.h"
#include "ports/locale_text.h"
#include "ports/random.h"

namespace quillo::qln {

/// How the program ends; written down in the help.
inline constexpr int kDone = 0;
inline constexpr int kNothingFound = 1;
inline constexpr int kWrongUse = 2;
inline constexpr int kFailed = 3;

/// The way to a running Quillo.
class Channel {
  public:
    virtual ~Channel() = default;
    [[nodiscard]] virtual bool Answers() = 0;
    /// Hands a command line over; false when nobody took it.
    [[nodiscard]] virtual bool Send(const std::string& commandLine) = 0;
    /// Starts the program; false when it cannot be found or started.
    [[nodiscard]] virtual bool Start() = 0;
    /// The path of a file as the program is to get it; nothing where it cannot reach the file.
    [[nodiscard]] virtual std::optional<std::string> PathForProgram(const std::string& path) = 0;
};

/// What the user has said about where the notes are.
struct FolderChoice {
    std::string folder;
    int codePage = 0;  ///< 0: as the system says
};

/// The notes of one user, and what has to be known about them.
struct Surroundings {
    std::string notesFolder;
    std::string closedFolder;  ///< where closed notes are saved; "" where it is not known
    Settings settings;
    std::string settingsText;  ///< the stored settings, a line each
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
    /// Finds the notes; nothing, with a message in `error`, where there are none to be found.
    [[nodiscard]] virtual std::optional<Surroundings> Find(const FolderChoice& choice, std::string& error) = 0;
    /// Adds a folder, the program's own where it is "", to the user's or the machine's PATH, or takes it out of it;
    /// false where that cannot be done.
    [[nodiscard]] virtual bool EditPath(bool add, bool machine, const std::string& folder) = 0;
};

}  // namespace quillo::qln
