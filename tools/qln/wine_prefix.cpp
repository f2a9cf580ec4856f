#include "wine_prefix.h"

#include <algorithm>
#include <filesystem>

#include "files.h"
#include "util/text.h"
#include "words.h"

namespace quillo::qln {
namespace {

namespace fs = std::filesystem;

/// The entry of a folder with that name in any letter case; the name itself if there is none.
std::string EntryNamed(const fs::path& folder, const std::string& name) {
    std::error_code error;
    if (fs::exists(folder / name, error)) return name;
    for (const auto& entry : fs::directory_iterator(folder, error)) {
        const std::string found = entry.path().filename().string();
        if (EqualsIgnoringAsciiCase(std::string_view(found), name)) return found;
    }
    return name;
}

bool Begins(const fs::path& path, const fs::path& folder) {
    const auto [inFolder, inPath] = std::mismatch(folder.begin(), folder.end(), path.begin(), path.end());
    return inFolder == folder.end() || (*inFolder == "" && std::next(inFolder) == folder.end());
}

}  // namespace

bool WinePrefix::IsPrefix(const std::string& folder) {
    return IsFile(JoinPaths(folder, "user.reg")) && IsFolder(JoinPaths(folder, "dosdevices"));
}

std::string WinePrefix::Above(const std::string& folder) {
    for (fs::path path = AbsolutePath(folder); path.has_relative_path(); path = path.parent_path()) {
        if (IsPrefix(path.string())) return path.string();
    }
    return {};
}

std::string WinePrefix::ToHost(std::u16string_view windowsPath) const {
    std::string text = ToUtf8(windowsPath);
    if (text.size() < 2 || text[1] != ':') return {};
    std::replace(text.begin(), text.end(), '\\', '/');
    const std::string drive = {AsciiLower(text[0]), ':'};
    fs::path path = fs::path(folder_) / "dosdevices" / drive;
    std::error_code error;
    if (!fs::exists(path, error)) return {};
    path = fs::canonical(path, error);
    for (const fs::path& part : fs::path(text.substr(2)).relative_path()) {
        if (!part.empty()) path /= EntryNamed(path, part.string());
    }
    return path.string();
}

std::optional<std::string> WinePrefix::ToWindows(const std::string& path) const {
    const fs::path whole = AbsolutePath(path);
    std::optional<std::string> best;
    std::size_t deepest = 0;
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(fs::path(folder_) / "dosdevices", error)) {
        const std::string drive = entry.path().filename().string();
        if (drive.size() != 2 || drive[1] != ':') continue;
        const fs::path root = fs::canonical(entry.path(), error);
        if (error || !Begins(whole, root)) continue;
        const std::size_t depth = root.string().size();
        if (best && depth <= deepest) continue;
        deepest = depth;
        std::string rest = whole.lexically_relative(root).string();
        std::replace(rest.begin(), rest.end(), '/', '\\');
        std::string name = std::string(1, static_cast<char>(drive[0] - 'a' + 'A')) + ":\\";
        best = name.append(rest);
    }
    return best;
}

}  // namespace quillo::qln
