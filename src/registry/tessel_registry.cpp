#include "registry/tessel_registry.h"

#include <algorithm>
#include <array>
#include <utility>

#include "util/class_error.h"
#include "util/ignore.h"
#include "util/text.h"

namespace quillo {

namespace {

struct Root {
    std::u16string_view name;
    RegistryApi::Key key;
};

constexpr std::array<Root, 7> kRoots{{
    {u"HKEY_CLASSES_ROOT", 0x80000000U},
    {u"HKEY_CURRENT_USER", 0x80000001U},
    {u"HKEY_LOCAL_MACHINE", 0x80000002U},
    {u"HKEY_USERS", 0x80000003U},
    {u"HKEY_PERFORMANCE_DATA", 0x80000004U},
    {u"HKEY_CURRENT_CONFIG", 0x80000005U},
    {u"HKEY_DYN_DATA", 0x80000006U},
}};

/// The last index that an enumeration requests: its counter is a signed 16-bit number.
constexpr std::uint32_t kLastIndex = 32767;

/// The predefined key with that full name; 0, under which no key can be created, for any other name or an abbreviation.
RegistryApi::Key FindRoot(std::u16string_view name) {
    const auto* found = std::find_if(kRoots.begin(), kRoots.end(),
                                     [name](const Root& root) { return EqualsIgnoringAsciiCase(root.name, name); });
    return found == kRoots.end() ? 0 : found->key;
}

}  // namespace

void TesselRegistry::SetRootPath(std::u16string_view path) {
    Reset();
    rootPath_ = Trim(path);
    if (!rootPath_.empty() && rootPath_.back() == u'\\') rootPath_.pop_back();
    if (rootPath_.empty()) return;

    const std::u16string_view whole = rootPath_;
    const std::size_t backslash = whole.find(u'\\');
    if (backslash == std::u16string_view::npos) {
        throw ClassError("TesselRegistry.RootPath", "A registry path needs a root and a subkey.");
    }
    key_ = api_.CreateKey(FindRoot(whole.substr(0, backslash)), whole.substr(backslash + 1));
}

void TesselRegistry::Reset() {
    if (key_ == 0) return;
    api_.CloseKey(std::exchange(key_, 0));
    rootPath_.clear();
}

std::u16string TesselRegistry::Value(std::u16string_view name) const {
    return GetValue(name, {});
}

std::u16string TesselRegistry::GetValue(std::u16string_view name, std::u16string_view fallback) const {
    if (key_ == 0) return {};
    std::optional<std::u16string> text = api_.QueryText(key_, name);
    return text ? *std::move(text) : std::u16string(fallback);
}

std::int32_t TesselRegistry::GetValueLong(std::u16string_view name, std::int32_t fallback) const {
    if (key_ == 0) return 0;
    return api_.QueryNumber(key_, name).value_or(fallback);
}

void TesselRegistry::SetValue(std::u16string_view name, std::u16string_view text) {
    if (key_ != 0) Ignore(api_.SetText(key_, name, text), "the registry is written silently");
}

std::int32_t TesselRegistry::ValueLong(std::u16string_view name) const {
    return GetValueLong(name, 0);
}

void TesselRegistry::SetValueLong(std::u16string_view name, std::int32_t number) {
    if (key_ != 0) Ignore(api_.SetNumber(key_, name, number), "the registry is written silently");
}

void TesselRegistry::DeleteValue(std::u16string_view name) {
    if (key_ != 0) Ignore(api_.DeleteValue(key_, name), "what is not there need not be deleted");
}

void TesselRegistry::DeleteKey(std::u16string_view name) {
    if (key_ != 0) Ignore(api_.DeleteKey(key_, name), "what is not there need not be deleted");
}

bool TesselRegistry::GetAllValues(TextTable& table) const {
    if (key_ == 0) return false;
    table = TextTable{1, 2, 0, 0, {}, {}};
    for (std::uint32_t index = 0; index <= kLastIndex; ++index) {
        std::optional<RegistryApi::ValueEntry> entry = api_.EnumerateValue(key_, index);
        if (!entry) break;
        table.names.push_back(std::move(entry->name));
        table.data.push_back(std::move(entry->text));
        table.columnLow = 1;
        ++table.columnHigh;
    }
    return api_.CountValues(key_) == table.names.size();
}

void TesselRegistry::GetAllSubkeys(TextList& list) const {
    if (key_ == 0) return;
    list = TextList{};
    for (std::uint32_t index = 0; index <= kLastIndex; ++index) {
        std::optional<std::u16string> name = api_.EnumerateSubkey(key_, index);
        if (!name) break;
        list.items.push_back(*std::move(name));
        list.low = 1;
        ++list.high;
    }
}

}  // namespace quillo
