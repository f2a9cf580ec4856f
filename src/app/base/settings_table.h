#pragma once

#include <string_view>
#include <variant>
#include <vector>

#include "app/base/settings.h"
#include "util/color_word.h"

namespace quillo {

class FileStore;
class Shell;
class TesselRegistry;

// A member of a default-constructed Settings is the default of its setting.

/// A text; an empty one means the default.
struct TextSetting {
    std::u16string& (*member)(Settings&);
    bool trimmed;
    std::u16string (*defaultText)(Shell&, FileStore&) = nullptr;  ///< for a default that depends on the system
    bool (*accepts)(std::u16string_view text) = nullptr;          ///< refused text means the default; null: any text
};

/// A number, -1 for true and 0 for false; any number but 0 reads as true.
struct FlagSetting {
    bool& (*member)(Settings&);
    bool inverted;  ///< the member is the negation of the stored value
};

/// A number from `least` to `most`; any other means the default.
struct NumberSetting {
    int& (*member)(Settings&);
    int least;
    int most;
};

/// A color word; the default only for a missing value, so that black, 0, stays black.
struct ColorSetting {
    ColorWord& (*member)(Settings&);
};

/// A number from `least` to `most` stored as text with "." as its decimal separator; any other means the default.
struct NumberTextSetting {
    double& (*member)(Settings&);
    double least;
    double most;
};

/// The four style bits of the note font in one number.
struct FontStyleSetting {};

/// One setting: its registry value and how it is read and written.
struct SettingRow {
    std::u16string_view name;
    std::variant<TextSetting, FlagSetting, NumberSetting, ColorSetting, NumberTextSetting, FontStyleSetting> kind;
};

/// Every setting of the user, in the order of loading and saving.
[[nodiscard]] const std::vector<SettingRow>& SettingsTable();

/// Reads every row from the user's key, which is created if it is missing; no value is written. "Use roaming profile"
/// keeps its value: it is not the user's.
void LoadSettings(TesselRegistry& registry, Shell& shell, FileStore& files, Settings& settings);
/// The same for a program that has access to the registry only: a text that is not stored stays empty if its default is
/// a place on the disk.
void LoadStoredSettings(TesselRegistry& registry, Settings& settings);
/// The machine's one setting; false if it cannot be read.
[[nodiscard]] bool LoadUseRoamingProfile(TesselRegistry& registry);

/// The row of a flag; null if there is no such flag.
[[nodiscard]] const FlagSetting* FindFlag(std::u16string_view name);

/// Writes one row, named as in the table in any letter case; false if there is no such row.
bool SaveSetting(TesselRegistry& registry, const Settings& settings, std::u16string_view name);

}  // namespace quillo
