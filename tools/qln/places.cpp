#include "places.h"

#include <array>
#include <cstdio>
#include <random>
#include <variant>

#include "app/base/registry_keys.h"
#include "app/base/settings_table.h"
#include "files.h"
#include "registry/tessel_registry.h"
#include "util/ignore.h"
#include "util/numbers.h"
#include "words.h"

namespace quillo::qln {

void PrepareFolder(const std::string& folder) {
    if (folder.empty() || IsFolder(folder)) return;
    const std::size_t name = LastPart(folder).size();
    if (name + 1 >= folder.size()) return;
    Ignore(MakeFolder(folder.substr(0, folder.size() - name - 1)), "it may be there, or cannot be made");
    Ignore(MakeFolder(folder), "the caller that needs it reports that it is missing");
}

StoredSettings ReadSettings(RegistryApi& api) {
    StoredSettings stored;
    TesselRegistry registry(api);
    LoadStoredSettings(registry, stored.settings);
    for (const SettingRow& row : SettingsTable()) {
        const std::u16string text = registry.Value(row.name);
        if (text.empty()) continue;  // not stored
        const bool isText =
            std::holds_alternative<TextSetting>(row.kind) || std::holds_alternative<NumberTextSetting>(row.kind);
        const std::u16string value = isText ? text : FormatInteger(registry.ValueLong(row.name));
        stored.lines += ToUtf8(std::u16string(row.name) + u"=" + value) + "\n";
    }
    stored.useRoamingProfile = LoadUseRoamingProfile(registry);
    return stored;
}

std::string MakeGuid() {
    std::random_device random;
    std::array<unsigned, 16> bytes{};
    for (unsigned& byte : bytes) byte = random() & 0xFFU;
    bytes[6] = 0x40U | (bytes[6] & 0x0FU);
    bytes[8] = 0x80U | (bytes[8] & 0x3FU);
    std::string guid = "{";
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        std::array<char, 16> digits{};
        std::snprintf(digits.data(), digits.size(), "%02X", bytes[i]);
        if (i == 4 || i == 6 || i == 8 || i == 10) guid += '-';
        guid += digits.data();
    }
    return guid + "}";
}

}  // namespace quillo::qln
