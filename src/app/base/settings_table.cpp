#include "app/base/settings_table.h"

#include <limits>
#include <type_traits>

#include "app/base/program_shortcut.h"
#include "app/base/registry_keys.h"
#include "ports/file_store.h"
#include "ports/shell.h"
#include "registry/tessel_registry.h"
#include "util/numbers.h"
#include "util/path_text.h"
#include "util/text.h"

namespace quillo {

namespace {

constexpr int kAny = std::numeric_limits<int>::max();

// Bits of "Note font style".
constexpr int kBold = 1;
constexpr int kItalic = 2;
constexpr int kUnderline = 4;
constexpr int kStrikeThrough = 8;

/// A program in the Windows folder, or in the system folder if it exists only there.
std::u16string SystemProgram(Shell& shell, FileStore& files, std::u16string_view name) {
    std::u16string inWindows = JoinPath(shell.WindowsFolder(), name);
    if (files.FileExists(inWindows)) return inWindows;
    const std::u16string inSystem = JoinPath(shell.SystemFolder(), name);
    return files.FileExists(inSystem) ? inSystem : inWindows;
}

std::u16string DefaultShortcut1(Shell& shell, FileStore& files) {
    return SystemProgram(shell, files, u"Explorer.exe");
}
std::u16string DefaultShortcut2(Shell& shell, FileStore& /*files*/) {
    return JoinPath(shell.FolderPath(SpecialFolder::ProgramFiles), u"Windows Media Player\\wmplayer.exe");
}
std::u16string DefaultShortcut3(Shell& shell, FileStore& files) {
    return SystemProgram(shell, files, u"Notepad.exe");
}
std::u16string DefaultShortcut4(Shell& shell, FileStore& files) {
    return SystemProgram(shell, files, u"Calc.exe");
}
std::u16string DefaultReminder(Shell& shell, FileStore& /*files*/) {
    return JoinPath(FolderOfPath(shell.ProgramPath()), u"Reminder.wma");
}
std::u16string DefaultNoteFolder(Shell& shell, FileStore& /*files*/) {
    return shell.FolderPath(SpecialFolder::DesktopDirectory);
}

template <int index>
std::u16string& Shortcut(Settings& s) {
    return s.shortcuts[index];
}

/// Accesses the member of Settings that a pointer names, as a plain function for a row.
template <auto member>
auto& Member(Settings& s) {
    return s.*member;
}
/// The same for the font.
template <auto member>
auto& Font(Settings& s) {
    return s.noteFont.*member;
}

template <auto member>
constexpr FlagSetting Flag() {
    return {&Member<member>, false};
}
template <auto member>
constexpr FlagSetting InvertedFlag() {
    return {&Member<member>, true};
}

std::vector<SettingRow> MakeTable() {
    using S = Settings;
    using F = FontSetting;
    return {
        {setting::kShortcuts[0], TextSetting{&Shortcut<0>, false, DefaultShortcut1, ShortcutFits}},
        {setting::kShortcuts[1], TextSetting{&Shortcut<1>, false, DefaultShortcut2, ShortcutFits}},
        {setting::kShortcuts[2], TextSetting{&Shortcut<2>, false, DefaultShortcut3, ShortcutFits}},
        {setting::kShortcuts[3], TextSetting{&Shortcut<3>, false, DefaultShortcut4, ShortcutFits}},
        {setting::kNoteFont, TextSetting{&Font<&F::name>, true}},
        {setting::kNoteFontSize, NumberTextSetting{&Font<&F::size>, 7, 32}},
        {setting::kNoteFontStyle, FontStyleSetting{}},
        {setting::kNoteFontCharset, NumberSetting{&Font<&F::charset>, 1, kAny}},
        {setting::kNoteColor, ColorSetting{&Member<&S::noteColor>}},
        {setting::kNoteBorderColor, ColorSetting{&Member<&S::noteBorderColor>}},
        {setting::kNoteTextColor, ColorSetting{&Member<&S::noteTextColor>}},
        {setting::kNoteTransparency, Flag<&S::noteTransparency>()},
        {setting::kNoteOpacity, NumberSetting{&Member<&S::noteOpacity>, 1, 255}},
        {setting::kMinimizeToTray, Flag<&S::minimizeToTray>()},
        {setting::kNoDragAndDrop, InvertedFlag<&S::dragAndDrop>()},
        {setting::kShowScrollBars, Flag<&S::showScrollBars>()},
        {setting::kRandomNoteColor, Flag<&S::randomNoteColor>()},
        {setting::kTimestampNewNotes, Flag<&S::timestampNewNotes>()},
        {setting::kHighContrastOff, Flag<&S::highContrastOff>()},
        {setting::kDontRecycleNotes, Flag<&S::dontRecycleNotes>()},
        {setting::kDisableBalloonHelp, Flag<&S::disableBalloonHelp>()},
        {setting::kDisableAnimation, InvertedFlag<&S::animation>()},
        {setting::kReminder, TextSetting{&Member<&S::reminder>, true, DefaultReminder}},
        {setting::kNoteFolder, TextSetting{&Member<&S::noteFolder>, true, DefaultNoteFolder}},
        {setting::kDoNotRememberFilenames, Flag<&S::doNotRememberFilenames>()},
        {setting::kAutoPinNewNotes, Flag<&S::autoPinNewNotes>()},
        {setting::kDoNotAdjustNotes, Flag<&S::doNotAdjustNotes>()},
        {setting::kNewNoteHotkey, NumberSetting{&Member<&S::newNoteHotkey>, 1, kAny}},
        {setting::kShowNotesHotkey, NumberSetting{&Member<&S::showNotesHotkey>, 1, kAny}},
        {setting::kShownHelp, Flag<&S::shownHelp>()},
        {setting::kStartupMode, NumberSetting{&Member<&S::startupMode>, std::numeric_limits<int>::min(), kAny}},
    };
}

/// Reads one row into the settings.
struct Loader {
    const TesselRegistry& registry;
    Shell* shell;  // null if the system's folders are unknown
    FileStore* files;
    Settings& settings;
    Settings& defaults;  // not const: the rows give access for writing as well as for reading
    std::u16string_view name;

    void operator()(const TextSetting& row) const {
        std::u16string text = registry.Value(name);
        if (row.trimmed) text = std::u16string(Trim(text));
        std::u16string& member = row.member(settings);
        if (!text.empty() && (row.accepts == nullptr || row.accepts(text))) {
            member = std::move(text);
        } else if (row.defaultText == nullptr) {
            member = row.member(defaults);
        } else if (shell != nullptr && files != nullptr) {
            member = row.defaultText(*shell, *files);
        }
    }
    void operator()(const FlagSetting& row) const {
        const bool defaultStored = row.member(defaults) != row.inverted;
        const bool stored = registry.GetValueLong(name, defaultStored ? kTrueNumber : 0) != 0;
        row.member(settings) = stored != row.inverted;
    }
    void operator()(const NumberSetting& row) const {
        const int number = registry.GetValueLong(name, row.member(defaults));
        row.member(settings) = number >= row.least && number <= row.most ? number : row.member(defaults);
    }
    void operator()(const ColorSetting& row) const {
        const ColorWord stored = ColorWord::FromNumber(registry.ValueLong(name));
        row.member(settings) = registry.Value(name).empty() ? row.member(defaults) : stored;
    }
    void operator()(const NumberTextSetting& row) const {
        const double number = ParseLeadingNumber(registry.Value(name));
        row.member(settings) = number >= row.least && number <= row.most ? number : row.member(defaults);
    }
    void operator()(const FontStyleSetting& /*row*/) const {
        const int style = registry.ValueLong(name);
        settings.noteFont.bold = (style & kBold) != 0;
        settings.noteFont.italic = (style & kItalic) != 0;
        settings.noteFont.underline = (style & kUnderline) != 0;
        settings.noteFont.strikeThrough = (style & kStrikeThrough) != 0;
    }
};

/// Writes one row from the settings.
struct Saver {
    TesselRegistry& registry;
    Settings& settings;  // the rows need access to their members for writing as well as for reading
    std::u16string_view name;

    void operator()(const TextSetting& row) const { registry.SetValue(name, row.member(settings)); }
    void operator()(const FlagSetting& row) const {
        registry.SetValueLong(name, row.member(settings) != row.inverted ? kTrueNumber : 0);
    }
    void operator()(const NumberSetting& row) const { registry.SetValueLong(name, row.member(settings)); }
    void operator()(const ColorSetting& row) const { registry.SetValueLong(name, row.member(settings).Number()); }
    void operator()(const NumberTextSetting& row) const {
        registry.SetValue(name, FormatSingle(static_cast<float>(row.member(settings)), u"."));
    }
    void operator()(const FontStyleSetting& /*row*/) const {
        const FontSetting& font = settings.noteFont;
        registry.SetValueLong(name, (font.bold ? kBold : 0) | (font.italic ? kItalic : 0) |
                                        (font.underline ? kUnderline : 0) | (font.strikeThrough ? kStrikeThrough : 0));
    }
};

void Load(TesselRegistry& registry, Shell* shell, FileStore* files, Settings& settings) {
    registry.SetRootPath(kUserKey);
    Settings defaults;
    for (const SettingRow& row : SettingsTable()) {
        std::visit(Loader{registry, shell, files, settings, defaults, row.name}, row.kind);
    }
}

}  // namespace

const std::vector<SettingRow>& SettingsTable() {
    static const std::vector<SettingRow> table = MakeTable();
    return table;
}

void LoadSettings(TesselRegistry& registry, Shell& shell, FileStore& files, Settings& settings) {
    Load(registry, &shell, &files, settings);
}

void LoadStoredSettings(TesselRegistry& registry, Settings& settings) {
    Load(registry, nullptr, nullptr, settings);
}

bool LoadUseRoamingProfile(TesselRegistry& registry) {
    registry.SetRootPath(kMachineKey);
    return registry.ValueLong(u"Use roaming profile") != 0;
}

const FlagSetting* FindFlag(std::u16string_view name) {
    for (const SettingRow& row : SettingsTable()) {
        if (row.name == name) return std::get_if<FlagSetting>(&row.kind);
    }
    return nullptr;
}

bool SaveSetting(TesselRegistry& registry, const Settings& settings, std::u16string_view name) {
    registry.SetRootPath(kUserKey);
    Settings values = settings;
    for (const SettingRow& row : SettingsTable()) {
        if (!EqualsIgnoringAsciiCase(row.name, name)) continue;
        std::visit(Saver{registry, values, row.name}, row.kind);
        return true;
    }
    return false;
}

}  // namespace quillo
