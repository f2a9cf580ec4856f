#include "files.h"

#include "util/text.h"

namespace quillo::qln {

std::string JoinPaths(std::string_view folder, std::string_view name) {
    std::string path(folder);
    if (!path.empty() && path.back() != kSeparator && path.back() != '/') path += kSeparator;
    return path.append(name);
}

std::string_view LastPart(std::string_view path) {
#ifdef _WIN32
    constexpr std::string_view kSeparators = "\\/";
#else
    constexpr std::string_view kSeparators = "/";
#endif
    return path.substr(path.find_last_of(kSeparators) + 1);  // npos + 1 is 0
}

bool HasNoteEnding(std::string_view name) {
    return EndsWithIgnoringAsciiCase(name, ".qln");
}

std::optional<std::string> ReadBytes(const std::string& path) {
    std::string bytes;
    return ReadInto(path, bytes) ? std::optional(std::move(bytes)) : std::nullopt;
}

}  // namespace quillo::qln
