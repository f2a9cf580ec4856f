#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "ports/registry_api.h"

namespace quillo {

/// Names and data of a key's values: rows 1 (names) and 2 (data), one column per value from 1 on. A key without values
/// has the bounds 1 to 2 by 0 to 0. All bounds are 0 until the table has been filled.
struct TextTable {
    int rowLow = 0;
    int rowHigh = 0;
    int columnLow = 0;
    int columnHigh = 0;
    std::vector<std::u16string> names;  ///< row 1, from column 1
    std::vector<std::u16string> data;   ///< row 2, from column 1

    friend bool operator==(const TextTable&, const TextTable&) = default;
};

/// Names of a key's subkeys, numbered from 1; 0 to 0 if there are none.
struct TextList {
    int low = 0;
    int high = 0;
    std::vector<std::u16string> items;  ///< from number 1

    friend bool operator==(const TextList&, const TextList&) = default;
};

/// One registry key, named by its full path. No operation reports an error: a value that cannot be read is empty, 0 or
/// the default; a value that cannot be written is skipped. With no key open, reads return "" or 0, and other calls do
/// nothing.
class TesselRegistry {
  public:
    explicit TesselRegistry(RegistryApi& api) : api_(api) {}
    /// Opens the key of `path` at once, as SetRootPath does.
    TesselRegistry(RegistryApi& api, std::u16string_view path) : api_(api) { SetRootPath(path); }
    TesselRegistry(const TesselRegistry&) = delete;
    TesselRegistry& operator=(const TesselRegistry&) = delete;
    ~TesselRegistry() { Reset(); }

    /// The path last set, trimmed and without one trailing backslash; "" after Reset.
    [[nodiscard]] const std::u16string& RootPath() const { return rootPath_; }
    /// Opens the key of a path such as "HKEY_CURRENT_USER\Software\Marrowind\Quillo", creating what is missing. A path
    /// without any backslash is misuse and raises ClassError.
    void SetRootPath(std::u16string_view path);
    void Reset();

    [[nodiscard]] std::u16string Value(std::u16string_view name) const;
    /// The default replaces a missing value; a closed key gives "".
    [[nodiscard]] std::u16string GetValue(std::u16string_view name, std::u16string_view fallback) const;
    /// The default replaces a missing value; a closed key gives 0.
    [[nodiscard]] std::int32_t GetValueLong(std::u16string_view name, std::int32_t fallback) const;
    void SetValue(std::u16string_view name, std::u16string_view text);
    [[nodiscard]] std::int32_t ValueLong(std::u16string_view name) const;
    void SetValueLong(std::u16string_view name, std::int32_t number);
    void DeleteValue(std::u16string_view name);
    void DeleteKey(std::u16string_view name);

    /// A closed key leaves the table as it was. True if the table holds every value of the key.
    bool GetAllValues(TextTable& table) const;
    /// A closed key leaves the list as it was. For other programs that use this class: no key of Quillo has subkeys.
    void GetAllSubkeys(TextList& list) const;

  private:
    RegistryApi& api_;
    RegistryApi::Key key_ = 0;
    std::u16string rootPath_;
};

}  // namespace quillo
