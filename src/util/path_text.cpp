#include "util/path_text.h"

namespace quillo {

std::u16string_view StripQuotes(std::u16string_view path) {
    // A single quote character is both the leading and the trailing one.
    if (!path.empty() && path.front() == u'"') path.remove_prefix(1);
    if (!path.empty() && path.back() == u'"') path.remove_suffix(1);
    return path;
}

std::u16string_view FileNameOfPath(std::u16string_view path) {
    return path.substr(path.find_last_of(u'\\') + 1);  // npos + 1 is 0
}

std::u16string_view FolderOfPath(std::u16string_view path) {
    const std::size_t backslash = path.find_last_of(u'\\');
    return backslash == std::u16string_view::npos ? std::u16string_view{} : path.substr(0, backslash);
}

std::u16string JoinPath(std::u16string_view folder, std::u16string_view name) {
    std::u16string path(folder);
    if (path.empty() || path.back() != u'\\') path.push_back(u'\\');
    return path.append(name);
}

std::u16string_view NameWithoutExtension(std::u16string_view path) {
    const std::u16string_view plain = StripQuotes(path);
    return plain.substr(0, plain.find_last_of(u'.'));  // the whole name if there is no "."
}

}  // namespace quillo
