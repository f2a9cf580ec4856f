#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ports/registry_api.h"

namespace quillo::qln {

/// One value of a registry file: the number of its type and its data, as the system call returns them.
struct RegValue {
    std::u16string name;
    std::uint32_t type = 1;
    std::string data;  ///< text as UTF-16, the low byte first, with its null
    bool operator==(const RegValue&) const = default;
};

/// The registry of a Wine prefix, read from its files "user.reg" and "system.reg". Read-only: a missing key is empty,
/// and nothing can be set.
class RegTextApi : public RegistryApi {
  public:
    RegTextApi(std::string user, std::string system) : user_(std::move(user)), system_(std::move(system)) {}

    [[nodiscard]] Key CreateKey(Key root, std::u16string_view subkey) override;
    void CloseKey(Key key) override;
    [[nodiscard]] std::optional<std::u16string> QueryText(Key key, std::u16string_view name) override;
    [[nodiscard]] std::optional<std::int32_t> QueryNumber(Key key, std::u16string_view name) override;
    [[nodiscard]] bool SetText(Key, std::u16string_view, std::u16string_view) override { return false; }
    [[nodiscard]] bool SetNumber(Key, std::u16string_view, std::int32_t) override { return false; }
    [[nodiscard]] bool DeleteValue(Key, std::u16string_view) override { return false; }
    [[nodiscard]] bool DeleteKey(Key, std::u16string_view) override { return false; }
    [[nodiscard]] std::optional<std::uint32_t> CountValues(Key key) override;
    [[nodiscard]] std::optional<ValueEntry> EnumerateValue(Key key, std::uint32_t index) override;
    [[nodiscard]] std::optional<std::u16string> EnumerateSubkey(Key, std::uint32_t) override { return std::nullopt; }

  private:
    using Values = std::vector<RegValue>;
    [[nodiscard]] const RegValue* Find(Key key, std::u16string_view name) const;

    std::string user_;
    std::string system_;
    std::vector<Values> open_;  // key N is open_[N - 1]
};

/// The values of a section, `key` with single backslashes; empty if there is none. Lines that cannot be read are
/// skipped.
[[nodiscard]] std::vector<RegValue> ReadRegSection(std::string_view file, std::u16string_view key);

}  // namespace quillo::qln
