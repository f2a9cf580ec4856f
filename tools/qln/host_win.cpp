#include "host_win.h"

#include <shlobj.h>

#include <algorithm>
#include <vector>

#include "app/base/registry_keys.h"
#include "path_list.h"
#include "places.h"
#include "platform/notify_channel.h"
#include "platform/unique_handle.h"
#include "platform/win32.h"
#include "platform/win_locale_text.h"
#include "platform/win_registry_api.h"
#include "platform/win_shell.h"
#include "registry/tessel_registry.h"
#include "util/ignore.h"
#include "util/path_text.h"
#include "wide_path.h"
#include "words.h"

namespace quillo::qln {
namespace {

class WinConsole : public Console {
  public:
    void Out(std::string_view text) override { Write(STD_OUTPUT_HANDLE, text); }
    void Error(std::string_view text) override { Write(STD_ERROR_HANDLE, text); }
    [[nodiscard]] bool IsTerminal() const override { return IsConsole(GetStdHandle(STD_OUTPUT_HANDLE)); }
    [[nodiscard]] std::string ReadInput(std::size_t most) override {
        const HANDLE input = GetStdHandle(STD_INPUT_HANDLE);
        return IsConsole(input) ? ReadTyped(input, most) : ReadPiped(input, most);
    }

  private:
    static bool IsConsole(HANDLE stream) {
        DWORD mode = 0;
        return GetConsoleMode(stream, &mode) != 0;
    }

    static void Write(DWORD which, std::string_view text) {
        constexpr std::size_t kPiece = 8192;
        const HANDLE stream = GetStdHandle(which);
        if (!IsConsole(stream)) {
            WriteBytes(stream, text);
            return;
        }
        // The marks of matches are terminal sequences; older consoles must have them enabled.
        constexpr DWORD kUnderstandsMarks = 0x0004;
        DWORD mode = 0;
        if (GetConsoleMode(stream, &mode) != 0) {
            Ignore(SetConsoleMode(stream, mode | kUnderstandsMarks), "an old console shows the marks as they are");
        }
        std::wstring wide = ToWide(text);
        for (std::size_t at = 0; at < wide.size(); at += kPiece) {
            DWORD written = 0;
            const auto count = static_cast<DWORD>(std::min(kPiece, wide.size() - at));
            if (WriteConsoleW(stream, wide.data() + at, count, &written, nullptr) == 0) return;
        }
    }

    static void WriteBytes(HANDLE stream, std::string_view text) {
        while (!text.empty()) {
            DWORD written = 0;
            const auto count = static_cast<DWORD>(std::min<std::size_t>(text.size(), 1U << 20U));
            if (WriteFile(stream, text.data(), count, &written, nullptr) == 0 || written == 0) return;
            text.remove_prefix(written);
        }
    }

    static std::string ReadTyped(HANDLE input, std::size_t most) {
        constexpr wchar_t kEnd = 26;  // Ctrl+Z
        std::wstring typed;
        std::vector<wchar_t> line(4096);
        while (typed.size() <= most) {
            DWORD count = 0;
            if (ReadConsoleW(input, line.data(), static_cast<DWORD>(line.size()), &count, nullptr) == 0) break;
            if (count == 0 || line[0] == kEnd) break;
            typed.append(line.data(), count);
        }
        return FromWideText(typed);
    }

    static std::string ReadPiped(HANDLE input, std::size_t most) {
        std::string bytes;
        std::vector<char> piece(1U << 16U);
        while (bytes.size() <= most) {
            DWORD count = 0;
            if (ReadFile(input, piece.data(), static_cast<DWORD>(piece.size()), &count, nullptr) == 0) break;
            if (count == 0) break;
            bytes.append(piece.data(), count);
        }
        return bytes;
    }
};

/// The program's channel, as any second start uses it.
class WinChannel : public Channel {
  public:
    [[nodiscard]] bool Answers() override { return AwaitNotifyBox(0) != nullptr; }
    [[nodiscard]] bool Send(const std::string& commandLine) override {
        constexpr DWORD kPatience = 2000;  // milliseconds: for a program that is just starting
        const HWND box = AwaitNotifyBox(kPatience);
        if (box == nullptr) return false;
        SendToNotifyBox(box, ToWide(commandLine).c_str());
        return true;
    }
    [[nodiscard]] bool Start() override {
        WinShell shell;
        const std::u16string beside = JoinPath(FolderOfPath(shell.ProgramPath()), u"quillo.exe");
        if (shell.Start(beside, {})) return true;
        WinRegistryApi api;
        const std::u16string value = TesselRegistry(api, kRunKey).Value(kRunValue);
        const std::size_t end = value.find(u'"', 1);
        const std::u16string registered = end == std::u16string::npos ? value : value.substr(0, end + 1);
        return !registered.empty() && shell.Start(StripQuotes(registered), {});
    }
    [[nodiscard]] std::optional<std::string> PathForProgram(const std::string& path) override {
        return AbsolutePath(path);
    }
};

/// The notes folder that the program would choose.
std::string NotesFolderOf(WinShell& shell, bool roaming) {
    std::u16string folder;
    if (!roaming) folder = shell.FolderPath(SpecialFolder::LocalApplicationData);
    if (folder.empty()) folder = shell.FolderPath(SpecialFolder::RoamingApplicationData);
    if (folder.empty()) folder = shell.FolderPath(SpecialFolder::Documents);
    return folder.empty() ? std::string() : EncodeUtf8(folder.append(kNotesBelow));
}

struct PathValue {
    std::u16string text;
    DWORD type = REG_EXPAND_SZ;
};

/// Nothing if the value exists but cannot be read: then it must not be written either.
std::optional<PathValue> ReadPath(HKEY key) {
    PathValue value;
    DWORD bytes = 0;
    const LSTATUS size = RegQueryValueExW(key, L"Path", nullptr, &value.type, nullptr, &bytes);
    if (size == ERROR_FILE_NOT_FOUND) return PathValue{};
    if (size != ERROR_SUCCESS || (value.type != REG_SZ && value.type != REG_EXPAND_SZ)) return std::nullopt;
    value.text.resize(bytes / sizeof(char16_t) + 1);
    DWORD read = bytes;
    if (RegQueryValueExW(key, L"Path", nullptr, nullptr, reinterpret_cast<BYTE*>(value.text.data()), &read) !=
        ERROR_SUCCESS) {
        return std::nullopt;
    }
    value.text.resize(read / sizeof(char16_t));
    while (!value.text.empty() && value.text.back() == u'\0') value.text.pop_back();
    return value;
}

bool WritePath(HKEY key, const PathValue& value) {
    const auto bytes = static_cast<DWORD>((value.text.size() + 1) * sizeof(char16_t));
    return RegSetValueExW(key, L"Path", 0, value.type, reinterpret_cast<const BYTE*>(value.text.c_str()), bytes) ==
           ERROR_SUCCESS;
}

}  // namespace

std::unique_ptr<Console> MakeWinConsole() {
    return std::make_unique<WinConsole>();
}

std::string WinHost::NewGuid() {
    return MakeGuid();
}

std::optional<Surroundings> WinHost::Find(const FolderChoice& choice, std::string& error) {
    WinShell shell;
    WinRegistryApi api;
    StoredSettings stored = ReadSettings(api);
    Surroundings place;
    place.notesFolder = choice.folder.empty() ? NotesFolderOf(shell, stored.useRoamingProfile) : choice.folder;
    if (choice.folder.empty()) PrepareFolder(place.notesFolder);
    std::u16string closed = stored.settings.noteFolder;
    if (closed.empty()) closed = shell.FolderPath(SpecialFolder::DesktopDirectory);
    place.closedFolder = EncodeUtf8(closed);
    if (place.notesFolder.empty() || !IsFolder(place.notesFolder)) {
        error = "the notes folder does not exist: " + HarmlessName(place.notesFolder);
        return std::nullopt;
    }
    if (choice.codePage != 0 && choice.codePage != static_cast<int>(GetACP())) {
        error = "on Windows the code page is the system's";
        return std::nullopt;
    }
    place.locale = std::make_unique<WinLocaleText>();
    place.channel = std::make_unique<WinChannel>();
    place.settings = std::move(stored.settings);
    place.settingsText = std::move(stored.lines);
    return place;
}

bool WinHost::EditPath(bool add, bool machine, const std::string& folder) {
    constexpr wchar_t kMachineEnvironment[] = L"System\\CurrentControlSet\\Control\\Session Manager\\Environment";
    HKEY opened = nullptr;
    const LSTATUS found =
        RegOpenKeyExW(machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER, machine ? kMachineEnvironment : L"Environment",
                      0, KEY_QUERY_VALUE | KEY_SET_VALUE, &opened);
    if (found != ERROR_SUCCESS) return false;
    const RegistryKeyHandle key(opened);
    const std::optional<PathValue> value = ReadPath(key.Get());
    if (!value) return false;
    WinShell shell;
    std::u16string entry = DecodeUtf8(folder, LoneSurrogates::Accept).value_or(std::u16string());
    if (entry.empty()) entry = FolderOfPath(shell.ProgramPath());
    if (entry.empty()) return false;
    if (entry.back() == u':') entry += u'\\';  // the root of a drive
    PathValue edited = *value;
    edited.text = add ? WithPathEntry(value->text, entry) : WithoutPathEntry(value->text, entry);
    if (edited.text == value->text) return true;
    // An installer of ours created a value that had no other entry.
    const bool stays = add || !edited.text.empty();
    if (stays ? !WritePath(key.Get(), edited) : RegDeleteValueW(key.Get(), L"Path") != ERROR_SUCCESS) return false;
    // Each window that does not respond costs this time, and the setup that waits for this program has some.
    constexpr UINT kPatience = 250;
    SendMessageTimeoutW(HWND_BROADCAST, WM_SETTINGCHANGE, 0, reinterpret_cast<LPARAM>(L"Environment"), SMTO_ABORTIFHUNG,
                        kPatience, nullptr);
    return true;
}

}  // namespace quillo::qln
