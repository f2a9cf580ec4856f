#pragma once

#include <string>
#include <vector>

#include "testing/fake_registry_api.h"

namespace quillo {

/// The names of the values written since the log was cleared.
[[nodiscard]] inline std::vector<std::u16string> WrittenNames(const FakeRegistryApi& registry) {
    std::vector<std::u16string> names;
    for (const std::u16string& line : registry.Log()) {
        if (line.starts_with(u"set ")) names.push_back(line.substr(4));
    }
    return names;
}

}  // namespace quillo
