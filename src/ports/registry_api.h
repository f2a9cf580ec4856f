#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillo {

/// The registry's own operations, one call each. Keys are numbers; 0 means no key.
class RegistryApi {
  public:
    using Key = std::uintptr_t;

    virtual ~RegistryApi() = default;

    /// Opens the subkey of a predefined key, creating what is missing; 0 on failure. `root` 0 always fails.
    [[nodiscard]] virtual Key CreateKey(Key root, std::u16string_view subkey) = 0;
    virtual void CloseKey(Key key) = 0;

    /// The data of a value of any type as text, without its terminating null; nothing if it cannot be read.
    [[nodiscard]] virtual std::optional<std::u16string> QueryText(Key key, std::u16string_view name) = 0;
    /// The first 4 bytes of a value that holds at most 4; nothing if it cannot be read.
    [[nodiscard]] virtual std::optional<std::int32_t> QueryNumber(Key key, std::u16string_view name) = 0;
    [[nodiscard]] virtual bool SetText(Key key, std::u16string_view name, std::u16string_view text) = 0;
    [[nodiscard]] virtual bool SetNumber(Key key, std::u16string_view name, std::int32_t number) = 0;
    [[nodiscard]] virtual bool DeleteValue(Key key, std::u16string_view name) = 0;
    [[nodiscard]] virtual bool DeleteKey(Key key, std::u16string_view subkey) = 0;

    struct ValueEntry {
        std::u16string name;
        std::u16string text;  ///< the data read as text, regardless of its type, without its last character
    };
    /// How many values the key has; nothing if the system cannot say.
    [[nodiscard]] virtual std::optional<std::uint32_t> CountValues(Key key) = 0;
    /// The value at an index from 0, of any size; nothing past the last.
    [[nodiscard]] virtual std::optional<ValueEntry> EnumerateValue(Key key, std::uint32_t index) = 0;
    [[nodiscard]] virtual std::optional<std::u16string> EnumerateSubkey(Key key, std::uint32_t index) = 0;
};

}  // namespace quillo
