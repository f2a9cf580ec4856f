#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "ports/registry_api.h"

namespace quillo {

/// A registry in memory. Names are found in any letter case and kept as first written. Texts are stored as narrow text
/// with its terminating null, numbers as four bytes, and each can be read as the other, as in the system's registry.
/// Tests name keys and values by full paths: "HKEY_CURRENT_USER\Software\Marrowind\Quillo".
class FakeRegistryApi : public RegistryApi {
  public:
    static constexpr Key kClassesRoot = 0x80000000U;
    static constexpr Key kCurrentUser = 0x80000001U;
    static constexpr Key kLocalMachine = 0x80000002U;

    FakeRegistryApi();

    // The port's operations.
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

    // Sets a value for a test and creates the key if it is missing.
    void Put(std::u16string_view path, std::u16string_view name, std::u16string_view text);
    void Put(std::u16string_view path, std::u16string_view name, std::int32_t number);
    void PutKey(std::u16string_view path) { Ensure(path); }
    /// From now on no key under this root can be opened.
    void Refuse(Key root) { refused_.insert(root); }
    /// From now on enumeration fails at the value with that name and at those after it.
    void RefuseEnumerationAt(std::u16string_view name) { unreadable_ = name; }
    /// The next `changes` changes succeed; those after them fail, as after a kill.
    void FailAfter(int changes) { changesLeft_ = changes; }
    void Revive() { changesLeft_.reset(); }
    /// Called before each value that is deleted.
    void OnDelete(std::function<void()> handler) { onDelete_ = std::move(handler); }

    // For assertions.
    [[nodiscard]] bool HasKey(std::u16string_view path) const;
    [[nodiscard]] bool HasValue(std::u16string_view path, std::u16string_view name) const;
    /// The text of a REG_SZ value; nothing if the value is missing or a number.
    [[nodiscard]] std::optional<std::u16string> Text(std::u16string_view path, std::u16string_view name) const;
    /// The number of a REG_DWORD value; nothing if the value is missing or a text.
    [[nodiscard]] std::optional<std::int32_t> Number(std::u16string_view path, std::u16string_view name) const;
    [[nodiscard]] std::size_t ValueCount(std::u16string_view path) const;
    [[nodiscard]] std::size_t OpenKeys() const { return open_.size(); }
    /// One line per successful change and per opened key: "open PATH", "set NAME", "delete NAME", "delete key NAME".
    [[nodiscard]] const std::vector<std::u16string>& Log() const { return log_; }
    void ClearLog() { log_.clear(); }
    /// How often the data of a value was asked for, found or not.
    [[nodiscard]] int ValuesRead() const { return valuesRead_; }

  private:
    struct CaseBlind {
        using is_transparent = void;
        bool operator()(std::u16string_view a, std::u16string_view b) const;
    };
    using Data = std::variant<std::u16string, std::int32_t>;
    struct Node {
        std::map<std::u16string, std::unique_ptr<Node>, CaseBlind> subkeys;
        // In the order of writing, which is the order of enumeration.
        std::vector<std::pair<std::u16string, Data>> values;

        [[nodiscard]] const Data* Find(std::u16string_view name) const;
        void Set(std::u16string_view name, Data data);
    };

    [[nodiscard]] bool MayChange() { return !changesLeft_ || (*changesLeft_)-- > 0; }
    [[nodiscard]] static std::u16string AsText(const Data& data);
    [[nodiscard]] Node* Find(Key key) const;
    [[nodiscard]] const Node* Find(std::u16string_view path) const;
    Node& Ensure(std::u16string_view path);
    static Node& EnsureBelow(Node& node, std::u16string_view subkey);

    std::map<Key, std::pair<std::u16string, std::unique_ptr<Node>>> roots_;
    std::map<Key, Node*> open_;
    std::set<Key> refused_;
    std::u16string unreadable_;
    std::function<void()> onDelete_;
    std::optional<int> changesLeft_;
    Key nextKey_ = 1;
    std::vector<std::u16string> log_;
    int valuesRead_ = 0;
};

}  // namespace quillo
