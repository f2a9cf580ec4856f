#include "testing/fake_registry_api.h"

#include <algorithm>

namespace quillo {

namespace {

char16_t Lower(char16_t c) {
    return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c - u'A' + u'a') : c;
}

bool SameName(std::u16string_view a, std::u16string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char16_t x, char16_t y) { return Lower(x) == Lower(y); });
}

/// Removes the first component of a path and its backslash, and returns the component.
std::u16string_view TakeComponent(std::u16string_view& path) {
    const std::size_t end = path.find(u'\\');
    const std::u16string_view first = path.substr(0, end);
    path = end == std::u16string_view::npos ? std::u16string_view{} : path.substr(end + 1);
    return first;
}

}  // namespace

bool FakeRegistryApi::CaseBlind::operator()(std::u16string_view a, std::u16string_view b) const {
    return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                        [](char16_t x, char16_t y) { return Lower(x) < Lower(y); });
}

const FakeRegistryApi::Data* FakeRegistryApi::Node::Find(std::u16string_view name) const {
    for (const auto& [valueName, data] : values) {
        if (SameName(valueName, name)) return &data;
    }
    return nullptr;
}

void FakeRegistryApi::Node::Set(std::u16string_view name, Data data) {
    for (auto& [valueName, old] : values) {
        if (SameName(valueName, name)) {
            old = std::move(data);
            return;
        }
    }
    values.emplace_back(name, std::move(data));
}

FakeRegistryApi::FakeRegistryApi() {
    const auto add = [this](Key key, std::u16string name) {
        roots_.emplace(key, std::make_pair(std::move(name), std::make_unique<Node>()));
    };
    add(kClassesRoot, u"HKEY_CLASSES_ROOT");
    add(kCurrentUser, u"HKEY_CURRENT_USER");
    add(kLocalMachine, u"HKEY_LOCAL_MACHINE");
    add(0x80000003U, u"HKEY_USERS");
    add(0x80000005U, u"HKEY_CURRENT_CONFIG");
}

FakeRegistryApi::Key FakeRegistryApi::CreateKey(Key root, std::u16string_view subkey) {
    const auto found = roots_.find(root);
    if (found == roots_.end() || refused_.count(root) != 0) return 0;
    const Key key = nextKey_++;
    open_[key] = &EnsureBelow(*found->second.second, subkey);
    log_.push_back(u"open " + found->second.first + u"\\" + std::u16string(subkey));
    return key;
}

void FakeRegistryApi::CloseKey(Key key) {
    open_.erase(key);
}

std::u16string FakeRegistryApi::AsText(const Data& data) {
    if (const auto* text = std::get_if<std::u16string>(&data)) return *text;
    const auto bits = static_cast<std::uint32_t>(std::get<std::int32_t>(data));
    std::u16string text;
    for (int byte = 0; byte < 3; ++byte) text.push_back(static_cast<char16_t>(bits >> (8 * byte) & 0xFFU));
    return text;
}

std::optional<std::u16string> FakeRegistryApi::QueryText(Key key, std::u16string_view name) {
    ++valuesRead_;
    const Node* node = Find(key);
    const Data* data = node ? node->Find(name) : nullptr;
    return data ? std::optional(AsText(*data)) : std::nullopt;
}

std::optional<std::int32_t> FakeRegistryApi::QueryNumber(Key key, std::u16string_view name) {
    ++valuesRead_;
    const Node* node = Find(key);
    const Data* data = node ? node->Find(name) : nullptr;
    if (!data) return std::nullopt;
    if (const auto* number = std::get_if<std::int32_t>(data)) return *number;
    const std::u16string& text = std::get<std::u16string>(*data);
    if (text.size() > 3) return std::nullopt;  // more bytes than a number has, the null included
    std::uint32_t bits = 0;
    for (std::size_t i = 0; i < text.size(); ++i) bits |= (text[i] & 0xFFU) << (8 * i);
    return static_cast<std::int32_t>(bits);
}

bool FakeRegistryApi::SetText(Key key, std::u16string_view name, std::u16string_view text) {
    Node* node = Find(key);
    if (!node || !MayChange()) return false;
    node->Set(name, std::u16string(text));
    log_.push_back(u"set " + std::u16string(name));
    return true;
}

bool FakeRegistryApi::SetNumber(Key key, std::u16string_view name, std::int32_t number) {
    Node* node = Find(key);
    if (!node || !MayChange()) return false;
    node->Set(name, number);
    log_.push_back(u"set " + std::u16string(name));
    return true;
}

bool FakeRegistryApi::DeleteValue(Key key, std::u16string_view name) {
    Node* node = Find(key);
    if (!node) return false;
    const auto found = std::find_if(node->values.begin(), node->values.end(),
                                    [name](const auto& value) { return SameName(value.first, name); });
    if (found == node->values.end() || !MayChange()) return false;
    if (onDelete_) onDelete_();
    node->values.erase(found);
    log_.push_back(u"delete " + std::u16string(name));
    return true;
}

bool FakeRegistryApi::DeleteKey(Key key, std::u16string_view subkey) {
    Node* node = Find(key);
    if (!node) return false;
    const auto found = node->subkeys.find(subkey);
    if (found == node->subkeys.end() || !found->second->subkeys.empty()) return false;
    node->subkeys.erase(found);
    log_.push_back(u"delete key " + std::u16string(subkey));
    return true;
}

std::optional<std::uint32_t> FakeRegistryApi::CountValues(Key key) {
    const Node* node = Find(key);
    return node ? std::optional(static_cast<std::uint32_t>(node->values.size())) : std::nullopt;
}

std::optional<RegistryApi::ValueEntry> FakeRegistryApi::EnumerateValue(Key key, std::uint32_t index) {
    ++valuesRead_;
    const Node* node = Find(key);
    if (!node || index >= node->values.size()) return std::nullopt;
    const auto& [name, data] = node->values[index];
    if (!unreadable_.empty() && name == unreadable_) return std::nullopt;
    return ValueEntry{name, AsText(data)};
}

std::optional<std::u16string> FakeRegistryApi::EnumerateSubkey(Key key, std::uint32_t index) {
    const Node* node = Find(key);
    if (!node || index >= node->subkeys.size()) return std::nullopt;
    return std::next(node->subkeys.begin(), static_cast<std::ptrdiff_t>(index))->first;
}

void FakeRegistryApi::Put(std::u16string_view path, std::u16string_view name, std::u16string_view text) {
    Ensure(path).Set(name, std::u16string(text));
}

void FakeRegistryApi::Put(std::u16string_view path, std::u16string_view name, std::int32_t number) {
    Ensure(path).Set(name, number);
}

bool FakeRegistryApi::HasKey(std::u16string_view path) const {
    return Find(path) != nullptr;
}

bool FakeRegistryApi::HasValue(std::u16string_view path, std::u16string_view name) const {
    const Node* node = Find(path);
    return node && node->Find(name);
}

std::optional<std::u16string> FakeRegistryApi::Text(std::u16string_view path, std::u16string_view name) const {
    const Node* node = Find(path);
    const Data* data = node ? node->Find(name) : nullptr;
    const auto* text = data ? std::get_if<std::u16string>(data) : nullptr;
    return text ? std::optional(*text) : std::nullopt;
}

std::optional<std::int32_t> FakeRegistryApi::Number(std::u16string_view path, std::u16string_view name) const {
    const Node* node = Find(path);
    const Data* data = node ? node->Find(name) : nullptr;
    const auto* number = data ? std::get_if<std::int32_t>(data) : nullptr;
    return number ? std::optional(*number) : std::nullopt;
}

std::size_t FakeRegistryApi::ValueCount(std::u16string_view path) const {
    const Node* node = Find(path);
    return node ? node->values.size() : 0;
}

FakeRegistryApi::Node* FakeRegistryApi::Find(Key key) const {
    const auto found = open_.find(key);
    return found == open_.end() ? nullptr : found->second;
}

const FakeRegistryApi::Node* FakeRegistryApi::Find(std::u16string_view path) const {
    const std::u16string_view root = TakeComponent(path);
    const Node* node = nullptr;
    for (const auto& [key, entry] : roots_) {
        if (SameName(entry.first, root)) node = entry.second.get();
    }
    while (node && !path.empty()) {
        const auto found = node->subkeys.find(TakeComponent(path));
        node = found == node->subkeys.end() ? nullptr : found->second.get();
    }
    return node;
}

FakeRegistryApi::Node& FakeRegistryApi::Ensure(std::u16string_view path) {
    const std::u16string_view root = TakeComponent(path);
    for (auto& [key, entry] : roots_) {
        if (SameName(entry.first, root)) return EnsureBelow(*entry.second, path);
    }
    return EnsureBelow(*roots_.at(kCurrentUser).second, path);
}

FakeRegistryApi::Node& FakeRegistryApi::EnsureBelow(Node& node, std::u16string_view subkey) {
    Node* current = &node;
    while (!subkey.empty()) {
        std::unique_ptr<Node>& next = current->subkeys[std::u16string(TakeComponent(subkey))];
        if (!next) next = std::make_unique<Node>();
        current = next.get();
    }
    return *current;
}

}  // namespace quillo
