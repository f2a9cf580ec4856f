#include "host_posix.h"

#include <unistd.h>

#include <cstdlib>
#include <ctime>
#include <random>

#include "app/base/registry_keys.h"
#include "places.h"
#include "prefix_locale.h"
#include "reg_text.h"
#include "registry/tessel_registry.h"
#include "util/numbers.h"
#include "util/path_text.h"
#include "util/text.h"
#include "wine_channel.h"
#include "wine_prefix.h"
#include "words.h"

namespace quillo::qln {
namespace {

class PosixConsole : public Console {
  public:
    void Out(std::string_view text) override { Write(STDOUT_FILENO, text); }
    void Error(std::string_view text) override { Write(STDERR_FILENO, text); }
    [[nodiscard]] bool IsTerminal() const override { return isatty(STDOUT_FILENO) == 1; }
    [[nodiscard]] std::string ReadInput(std::size_t most) override {
        std::string bytes;
        std::string piece(1U << 16U, '\0');
        while (bytes.size() <= most) {
            const ssize_t count = read(STDIN_FILENO, piece.data(), piece.size());
            if (count <= 0) break;
            bytes.append(piece, 0, static_cast<std::size_t>(count));
        }
        return bytes;
    }

  private:
    static void Write(int stream, std::string_view text) {
        while (!text.empty()) {
            const ssize_t written = write(stream, text.data(), text.size());
            if (written <= 0) return;  // the reader has closed the pipe
            text.remove_prefix(static_cast<std::size_t>(written));
        }
    }
};

class PosixClock : public Clock {
  public:
    [[nodiscard]] DaySerial Now() override {
        const std::time_t now = std::time(nullptr);
        std::tm local{};
        localtime_r(&now, &local);
        return ToDaySerial(
            {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec});
    }
};

class DeviceRandom : public Random {
  public:
    [[nodiscard]] double Next() override { return std::uniform_real_distribution<double>(0, 1)(device_); }

  private:
    std::random_device device_;
};

std::string FromEnvironment(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? std::string() : value;
}

/// The prefix of the program's own start script.
std::string OwnPrefix() {
    std::string data = FromEnvironment("XDG_DATA_HOME");
    if (data.empty()) data = JoinPaths(FromEnvironment("HOME"), ".local/share");
    return JoinPaths(data, "quillo/wine");
}

/// A value of a key of the user, or of the machine.
std::u16string Value(RegistryApi& api, std::u16string_view key, std::u16string_view name) {
    return TesselRegistry(api, key).Value(name);
}

Regional RegionalOf(RegistryApi& api) {
    Regional regional;
    const TesselRegistry key(api, u"HKEY_CURRENT_USER\\Control Panel\\International");
    const auto take = [&key](std::u16string& field, std::u16string_view name) {
        std::u16string value = key.Value(name);
        if (!value.empty()) field = std::move(value);
    };
    take(regional.decimal, u"sDecimal");
    take(regional.shortDate, u"sShortDate");
    take(regional.longTime, u"sTimeFormat");
    take(regional.morning, u"s1159");
    take(regional.afternoon, u"s2359");
    return regional;
}

int CodePageOf(RegistryApi& api) {
    constexpr std::u16string_view kKey = u"HKEY_LOCAL_MACHINE\\System\\ControlSet001\\Control\\Nls\\CodePage";
    const double number = ParseLeadingNumber(Value(api, kKey, u"ACP"));
    return number > 0 && number < 65536 ? static_cast<int>(number) : CodePage::kWesternEuropean;
}

/// The notes folder that the program would choose.
std::string NotesFolderOf(RegistryApi& api, const WinePrefix& prefix, bool roaming) {
    const TesselRegistry folders(
        api, u"HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders");
    std::u16string folder;
    if (!roaming) folder = folders.Value(u"Local AppData");
    if (folder.empty()) folder = folders.Value(u"AppData");
    if (folder.empty()) folder = folders.Value(u"Personal");
    if (folder.empty()) return {};
    return prefix.ToHost(folder.append(kNotesBelow));
}

std::string ClosedFolderOf(RegistryApi& api, const WinePrefix& prefix, std::u16string folder) {
    if (folder.empty()) {
        folder = Value(api, u"HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders",
                       u"Desktop");
    }
    return prefix.ToHost(folder);
}

/// The program that the session starts: the value is its path in quotes.
std::string RegisteredProgram(RegistryApi& api) {
    const std::u16string value = Value(api, kRunKey, kRunValue);
    const std::size_t end = value.find(u'"', 1);
    return ToUtf8(StripQuotes(end == std::u16string::npos ? value : value.substr(0, end + 1)));
}

}  // namespace

std::unique_ptr<Console> MakePosixConsole() {
    return std::make_unique<PosixConsole>();
}

PosixHost::PosixHost(Console& console)
    : console_(console), clock_(std::make_unique<PosixClock>()), random_(std::make_unique<DeviceRandom>()) {}

PosixHost::~PosixHost() = default;

std::string PosixHost::NewGuid() {
    return MakeGuid();
}

std::optional<Surroundings> PosixHost::Find(const FolderChoice& choice, std::string& error) {
    Surroundings place;
    place.notesFolder = choice.folder.empty() ? FromEnvironment("QUILLO_NOTES") : choice.folder;
    std::string prefix =
        place.notesFolder.empty() ? FromEnvironment("WINEPREFIX") : WinePrefix::Above(place.notesFolder);
    if (place.notesFolder.empty() && prefix.empty()) prefix = OwnPrefix();
    if (!prefix.empty() && !WinePrefix::IsPrefix(prefix)) {
        error = "there are no notes of Quillo in " + HarmlessName(prefix) + "; name their folder with --folder";
        return std::nullopt;
    }
    RegTextApi api(prefix.empty() ? "" : ReadBytes(JoinPaths(prefix, "user.reg")).value_or(""),
                   prefix.empty() ? "" : ReadBytes(JoinPaths(prefix, "system.reg")).value_or(""));
    const WinePrefix wine(prefix);
    StoredSettings stored = ReadSettings(api);
    if (place.notesFolder.empty()) {
        place.notesFolder = NotesFolderOf(api, wine, stored.useRoamingProfile);
        PrepareFolder(place.notesFolder);
    }
    if (!prefix.empty()) place.closedFolder = ClosedFolderOf(api, wine, stored.settings.noteFolder);
    if (place.notesFolder.empty() || !IsFolder(place.notesFolder)) {
        error = "the notes folder does not exist: " + HarmlessName(place.notesFolder);
        return std::nullopt;
    }
    const int number = choice.codePage != 0 ? choice.codePage : CodePageOf(api);
    std::optional<CodePage> page = CodePage::Find(number);
    if (!page) {
        error = "the code page " + std::to_string(number) + " is not known here; name one with --codepage";
        return std::nullopt;
    }
    place.locale = std::make_unique<PrefixLocale>(*std::move(page), RegionalOf(api));
    place.channel = std::make_unique<WineChannel>(prefix, RegisteredProgram(api));
    place.settings = std::move(stored.settings);
    place.settingsText = std::move(stored.lines);
    return place;
}

}  // namespace quillo::qln
