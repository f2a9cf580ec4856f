#include "path_list.h"

#include <algorithm>
#include <vector>

#include "util/text.h"

namespace quillo::qln {
namespace {

/// The entry in the form in which it is compared.
std::u16string_view Bare(std::u16string_view entry) {
    entry = Trim(entry);
    if (entry.size() >= 2 && entry.front() == u'"' && entry.back() == u'"') entry = entry.substr(1, entry.size() - 2);
    while (!entry.empty() && entry.back() == u'\\') entry.remove_suffix(1);
    return entry;
}

bool IsEntry(std::u16string_view entry, std::u16string_view folder) {
    return EqualsIgnoringAsciiCase(Bare(entry), Bare(folder));
}

/// The entries between semicolons; a semicolon inside quotes does not count.
std::vector<std::u16string_view> Entries(std::u16string_view path) {
    std::vector<std::u16string_view> entries;
    std::size_t from = 0;
    bool quoted = false;
    for (std::size_t i = 0; i <= path.size(); ++i) {
        if (i < path.size() && path[i] == u'"') quoted = !quoted;
        if (i < path.size() && (path[i] != u';' || quoted)) continue;
        entries.push_back(path.substr(from, i - from));
        from = i + 1;
    }
    return entries;
}

}  // namespace

std::u16string WithPathEntry(std::u16string_view path, std::u16string_view folder) {
    const auto entries = Entries(path);
    std::u16string result(path);
    if (std::any_of(entries.begin(), entries.end(), [folder](auto entry) { return IsEntry(entry, folder); })) {
        return result;
    }
    if (!result.empty() && result.back() != u';') result += u';';
    return result.append(folder);
}

std::u16string WithoutPathEntry(std::u16string_view path, std::u16string_view folder) {
    std::u16string result;
    bool first = true;
    for (const std::u16string_view entry : Entries(path)) {
        if (IsEntry(entry, folder)) continue;
        if (!first) result += u';';
        result += entry;
        first = false;
    }
    return result;
}

}  // namespace quillo::qln
