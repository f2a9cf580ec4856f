#include "reg_text.h"

#include <charconv>
#include <cstring>

#include "util/ignore.h"
#include "util/text.h"
#include "util/unicode.h"

namespace quillo::qln {
namespace {

constexpr RegistryApi::Key kCurrentUser = 0x80000001U;
constexpr RegistryApi::Key kLocalMachine = 0x80000002U;
constexpr std::uint32_t kText = 1;
constexpr std::uint32_t kBinary = 3;
constexpr std::uint32_t kNumber = 4;

int HexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    const char lower = AsciiLower(c);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

/// Reads a text up to `end`, which is skipped; advances the position. Characters beyond ASCII are escaped.
std::u16string ReadEscaped(std::string_view text, std::size_t& at, char end) {
    std::u16string result;
    while (at < text.size() && text[at] != end) {
        char c = text[at++];
        if (c != '\\' || at >= text.size()) {
            result += static_cast<char16_t>(static_cast<unsigned char>(c));
            continue;
        }
        c = text[at++];
        if (c == 'x') {
            unsigned code = 0;
            for (int digits = 0; digits < 4 && at < text.size() && HexDigit(text[at]) >= 0; ++digits) {
                code = code * 16 + static_cast<unsigned>(HexDigit(text[at++]));
            }
            result += static_cast<char16_t>(code);
        } else if (c >= '0' && c <= '7') {
            unsigned code = static_cast<unsigned>(c - '0');
            for (int digits = 1; digits < 3 && at < text.size() && text[at] >= '0' && text[at] <= '7'; ++digits) {
                code = code * 8 + static_cast<unsigned>(text[at++] - '0');
            }
            result += static_cast<char16_t>(code);
        } else {
            constexpr std::string_view kLetters = "abefnrtv";
            constexpr std::u16string_view kControls = u"\a\b\x1b\f\n\r\t\v";
            const std::size_t letter = kLetters.find(c);
            result += letter == std::string_view::npos ? static_cast<char16_t>(c) : kControls[letter];
        }
    }
    if (at < text.size()) ++at;
    return result;
}

std::string TextData(const std::u16string& text) {
    std::string data;
    for (const char16_t unit : text + u'\0') {
        data += static_cast<char>(unit & 0xFF);
        data += static_cast<char>(unit >> 8);
    }
    return data;
}

std::string NumberData(std::string_view digits) {
    std::uint32_t number = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), number, 16);
    std::string data(sizeof number, '\0');
    std::memcpy(data.data(), &number, sizeof number);
    return data;
}

std::string HexData(std::string_view list) {
    std::string data;
    for (std::size_t i = 0; i + 1 < list.size(); ++i) {
        const int high = HexDigit(list[i]);
        const int low = HexDigit(list[i + 1]);
        if (high < 0 || low < 0) continue;
        data += static_cast<char>(high * 16 + low);
        ++i;
    }
    return data;
}

std::uint32_t TypeInParentheses(std::string_view data, std::uint32_t otherwise) {
    const std::size_t open = data.find('(');
    if (open == std::string_view::npos || open > 4) return otherwise;
    std::uint32_t type = otherwise;
    std::from_chars(data.data() + open + 1, data.data() + data.size(), type, 16);
    return type;
}

bool StartsWith(std::string_view text, std::string_view start) {
    return text.substr(0, start.size()) == start;
}

/// `"name"=data` or `@=data`.
std::optional<RegValue> ReadValue(std::string_view line) {
    RegValue value;
    std::size_t at = 1;
    if (line.front() == '"') {
        value.name = ReadEscaped(line, at, '"');
    } else if (line.front() != '@') {
        return std::nullopt;
    }
    if (at >= line.size() || line[at] != '=') return std::nullopt;
    const std::string_view data = line.substr(at + 1);
    if (StartsWith(data, "dword:")) {
        value.type = kNumber;
        value.data = NumberData(data.substr(6));
    } else if (StartsWith(data, "hex")) {
        value.type = TypeInParentheses(data, kBinary);
        const std::size_t colon = data.find(':');
        if (colon != std::string_view::npos) value.data = HexData(data.substr(colon + 1));
    } else {
        const std::size_t quote = data.find('"');
        if (quote == std::string_view::npos) return std::nullopt;
        value.type = quote == 0 ? kText : TypeInParentheses(data, kText);
        std::size_t from = quote + 1;
        value.data = TextData(ReadEscaped(data, from, '"'));
    }
    return value;
}

/// The next line without its end; a line that ends in a backslash continues in the next one.
std::string NextLine(std::string_view file, std::size_t& at) {
    std::string line;
    while (at < file.size()) {
        const std::size_t end = std::min(file.find('\n', at), file.size());
        std::string_view part = file.substr(at, end - at);
        at = end + 1;
        if (!part.empty() && part.back() == '\r') part.remove_suffix(1);
        const bool more = !part.empty() && part.back() == '\\';
        line += part.substr(0, part.size() - (more ? 1 : 0));
        if (!more) break;
    }
    return line;
}

}  // namespace

std::vector<RegValue> ReadRegSection(std::string_view file, std::u16string_view key) {
    std::vector<RegValue> values;
    for (std::size_t at = 0; at != std::string_view::npos; at = file.find("\n[", at)) {
        if (at < file.size() && file[at] == '\n') ++at;
        if (at >= file.size() || file[at] != '[') continue;
        std::size_t name = at + 1;
        if (!EqualsIgnoringAsciiCase(std::u16string_view(ReadEscaped(file, name, ']')), key)) continue;
        at = name;
        Ignore(NextLine(file, at), "the rest of the heading is the time of the last change");
        while (at < file.size() && file[at] != '[') {
            const std::string line = NextLine(file, at);
            if (line.empty()) continue;
            if (auto value = ReadValue(line)) values.push_back(*std::move(value));
        }
        return values;
    }
    return values;
}

RegistryApi::Key RegTextApi::CreateKey(Key root, std::u16string_view subkey) {
    if (root != kCurrentUser && root != kLocalMachine) return 0;
    open_.push_back(ReadRegSection(root == kCurrentUser ? user_ : system_, subkey));
    return open_.size();
}

void RegTextApi::CloseKey(Key key) {
    if (key == open_.size() && key != 0) open_.pop_back();
}

const RegValue* RegTextApi::Find(Key key, std::u16string_view name) const {
    if (key == 0 || key > open_.size()) return nullptr;
    for (const RegValue& value : open_[key - 1]) {
        if (EqualsIgnoringAsciiCase(std::u16string_view(value.name), name)) return &value;
    }
    return nullptr;
}

std::optional<std::u16string> RegTextApi::QueryText(Key key, std::u16string_view name) {
    const RegValue* value = Find(key, name);
    if (value == nullptr) return std::nullopt;
    std::u16string text = DecodeUtf16(value->data, ByteOrder::LittleEndian);
    if (!text.empty()) text.pop_back();  // the null; for data that is not text, the last unit, as in the system call
    return text;
}

std::optional<std::int32_t> RegTextApi::QueryNumber(Key key, std::u16string_view name) {
    const RegValue* value = Find(key, name);
    if (value == nullptr || value->data.size() > sizeof(std::int32_t)) return std::nullopt;
    std::int32_t number = 0;
    std::memcpy(&number, value->data.data(), value->data.size());
    return number;
}

std::optional<std::uint32_t> RegTextApi::CountValues(Key key) {
    if (key == 0 || key > open_.size()) return std::nullopt;
    return static_cast<std::uint32_t>(open_[key - 1].size());
}

std::optional<RegistryApi::ValueEntry> RegTextApi::EnumerateValue(Key key, std::uint32_t index) {
    if (key == 0 || key > open_.size() || index >= open_[key - 1].size()) return std::nullopt;
    const std::u16string name = open_[key - 1][index].name;
    return ValueEntry{name, QueryText(key, name).value_or(std::u16string())};
}

}  // namespace quillo::qln
