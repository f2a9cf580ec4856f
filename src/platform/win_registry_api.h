#pragma once

#include "ports/registry_api.h"

namespace quillo {

/// The Windows registry, through its wide calls.
class WinRegistryApi : public RegistryApi {
  public:
    [[nodiscard]] Key CreateKey(Key root, std::u16string_view subkey) override;
    void CloseKey(Key key) override;
    [[nodiscard]] std::optional<std::u16string> QueryText(Key key, std::u16string_view name) override;
    [[nodiscard]] std::optional<std::int32_t> QueryNumber(Key key, std::u16string_view name) override;
    [[nodiscard]] bool SetText(Key key, std::u16string_view name, std::u16string_view text) override;
    [[nodiscard]] bool SetNumber(Key key, std::u16string_view name, std::int32_t number) override;
    [[nodiscard]] bool DeleteValue(Key key, std::u16string_view name) override;
    [[nodiscard]] bool DeleteKey(Key key, std::u16string_view subkey) override;
    [[nodiscard]] std::optional<std::uint32_t> CountValues(Key key) override;
    [[nodiscard]] std::optional<ValueEntry> EnumerateValue(Key key, std::uint32_t index) override;
    [[nodiscard]] std::optional<std::u16string> EnumerateSubkey(Key key, std::uint32_t index) override;
};

}  // namespace quillo
