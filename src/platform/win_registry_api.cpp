#include "platform/win_registry_api.h"

#include <algorithm>
#include <cstring>

#include "platform/wide.h"

namespace quillo {
namespace {

HKEY AsKey(RegistryApi::Key key) {
    return reinterpret_cast<HKEY>(key);
}

/// Predefined keys are 32-bit numbers that the system sign-extends.
HKEY AsRoot(RegistryApi::Key root) {
    return reinterpret_cast<HKEY>(static_cast<LONG_PTR>(static_cast<LONG>(static_cast<ULONG>(root))));
}

/// The registry's data as text: two bytes per character, without the last one, which is the null that the system
/// returns. A value of another type is read in the same way.
std::u16string DataAsText(const void* data, DWORD bytes) {
    const std::size_t characters = bytes / sizeof(char16_t);
    if (characters == 0) return {};
    std::u16string text(characters - 1, u'\0');
    std::memcpy(text.data(), data, text.size() * sizeof(char16_t));
    return text;
}

constexpr DWORD kLongestName = 32768;

}  // namespace

RegistryApi::Key WinRegistryApi::CreateKey(Key root, std::u16string_view subkey) {
    if (root == 0) return 0;
    HKEY key = nullptr;
    if (RegCreateKeyW(AsRoot(root), Wide(std::u16string(subkey)), &key) != ERROR_SUCCESS) return 0;
    return reinterpret_cast<Key>(key);
}

void WinRegistryApi::CloseKey(Key key) {
    RegCloseKey(AsKey(key));
}

std::optional<std::u16string> WinRegistryApi::QueryText(Key key, std::u16string_view name) {
    const std::u16string valueName(name);
    DWORD bytes = 0;
    if (RegQueryValueExW(AsKey(key), Wide(valueName), nullptr, nullptr, nullptr, &bytes) != ERROR_SUCCESS) {
        return std::nullopt;
    }
    // One extra unit, so that text stored without its null is still read completely.
    std::u16string buffer(bytes / sizeof(char16_t) + 2, u'\0');
    DWORD type = 0;
    DWORD size = bytes;
    if (RegQueryValueExW(AsKey(key), Wide(valueName), nullptr, &type, reinterpret_cast<BYTE*>(buffer.data()), &size) !=
        ERROR_SUCCESS) {
        return std::nullopt;
    }
    const std::size_t units = size / sizeof(char16_t);
    const bool unterminated = type == REG_SZ && units != 0 && buffer[units - 1] != u'\0';
    return DataAsText(buffer.data(), size + (unterminated ? DWORD{sizeof(char16_t)} : 0U));
}

std::optional<std::int32_t> WinRegistryApi::QueryNumber(Key key, std::u16string_view name) {
    std::int32_t number = 0;
    DWORD bytes = sizeof number;
    if (RegQueryValueExW(AsKey(key), Wide(std::u16string(name)), nullptr, nullptr, reinterpret_cast<BYTE*>(&number),
                         &bytes) != ERROR_SUCCESS) {
        return std::nullopt;
    }
    return number;
}

bool WinRegistryApi::SetText(Key key, std::u16string_view name, std::u16string_view text) {
    const std::u16string data(text);
    // The null counts: other programs read the value, too.
    const auto bytes = static_cast<DWORD>((data.size() + 1) * sizeof(char16_t));
    return RegSetValueExW(AsKey(key), Wide(std::u16string(name)), 0, REG_SZ,
                          reinterpret_cast<const BYTE*>(data.c_str()), bytes) == ERROR_SUCCESS;
}

bool WinRegistryApi::SetNumber(Key key, std::u16string_view name, std::int32_t number) {
    return RegSetValueExW(AsKey(key), Wide(std::u16string(name)), 0, REG_DWORD, reinterpret_cast<const BYTE*>(&number),
                          sizeof number) == ERROR_SUCCESS;
}

bool WinRegistryApi::DeleteValue(Key key, std::u16string_view name) {
    return RegDeleteValueW(AsKey(key), Wide(std::u16string(name))) == ERROR_SUCCESS;
}

bool WinRegistryApi::DeleteKey(Key key, std::u16string_view subkey) {
    return RegDeleteKeyW(AsKey(key), Wide(std::u16string(subkey))) == ERROR_SUCCESS;
}

std::optional<std::uint32_t> WinRegistryApi::CountValues(Key key) {
    DWORD count = 0;
    if (RegQueryInfoKeyW(AsKey(key), nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &count, nullptr, nullptr,
                         nullptr, nullptr) != ERROR_SUCCESS) {
        return std::nullopt;
    }
    return count;
}

std::optional<RegistryApi::ValueEntry> WinRegistryApi::EnumerateValue(Key key, std::uint32_t index) {
    std::u16string name(kLongestName, u'\0');
    std::u16string data(kLongestName, u'\0');
    for (;;) {
        DWORD nameLength = kLongestName;
        auto bytes = static_cast<DWORD>(data.size() * sizeof(char16_t));
        const LSTATUS status = RegEnumValueW(AsKey(key), index, WideBuffer(name), &nameLength, nullptr, nullptr,
                                             reinterpret_cast<BYTE*>(data.data()), &bytes);
        if (status == ERROR_SUCCESS) {
            name.resize(nameLength);
            return ValueEntry{name, DataAsText(data.data(), bytes)};
        }
        // The size that the system reports may be that of the largest data so far, so the buffer also doubles.
        constexpr std::size_t kLargest = 0x400'0000;
        if (status != ERROR_MORE_DATA || data.size() > kLargest) return std::nullopt;
        data.resize(std::max<std::size_t>(data.size() * 2, bytes / sizeof(char16_t) + 1));
    }
}

std::optional<std::u16string> WinRegistryApi::EnumerateSubkey(Key key, std::uint32_t index) {
    std::u16string name(kLongestName, u'\0');
    if (RegEnumKeyW(AsKey(key), index, WideBuffer(name), kLongestName) != ERROR_SUCCESS) return std::nullopt;
    name.resize(name.find(u'\0'));
    return name;
}

}  // namespace quillo
