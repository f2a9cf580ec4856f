#include "testing/fake_file_store.h"

#include "util/numbers.h"
#include "util/text.h"

namespace quillo {
namespace {

// The key of a path: folded, without a backslash at its end.
std::u16string Key(std::u16string_view path) {
    if (!path.empty() && path.back() == u'\\') path.remove_suffix(1);
    return FoldAscii(path);
}

std::u16string_view FolderOf(std::u16string_view path) {
    const std::size_t slash = path.rfind(u'\\');
    return slash == std::u16string_view::npos ? std::u16string_view() : path.substr(0, slash);
}

}  // namespace

bool FakeFileStore::FileExists(std::u16string_view path) {
    return files_.count(Key(path)) != 0;
}

std::optional<std::string> FakeFileStore::Read(std::u16string_view path) {
    const auto file = files_.find(Key(path));
    if (file == files_.end() || failing_.count(file->first) != 0) return std::nullopt;
    return file->second.bytes;
}

bool FakeFileStore::CanWrite(const std::u16string& key) const {
    return !key.empty() && !failWrites_ && failing_.count(key) == 0 && folders_.count(key) == 0;
}

bool FakeFileStore::Write(std::u16string_view path, std::string_view bytes) {
    log.push_back(u"Write " + std::u16string(path));
    const std::u16string key = Key(path);
    if (!CanWrite(key)) return false;
    Put(path, bytes);
    durable_[key].bytes.clear();  // truncated at once, filled some day
    return true;
}

bool FakeFileStore::Replace(std::u16string_view path, std::string_view bytes) {
    log.push_back(u"Replace " + std::u16string(path));
    if (!CanWrite(Key(path))) return false;
    if (cutDuringReplace_) {
        cutDuringReplace_ = false;
        CutPower();
        return false;
    }
    Put(path, bytes);
    return true;
}

bool FakeFileStore::Delete(std::u16string_view path) {
    log.push_back(u"Delete " + std::u16string(path));
    const std::u16string key = Key(path);
    if (failing_.count(key) != 0) return false;
    durable_.erase(key);
    return files_.erase(key) != 0;
}

bool FakeFileStore::CreateFolder(std::u16string_view path) {
    log.push_back(u"CreateFolder " + std::u16string(path));
    if (FolderExists(path)) return true;
    const std::u16string key = Key(path);
    const std::u16string_view parent = FolderOf(key);
    const bool isDrive = parent.size() == 2 && parent[1] == u':';
    if (!CanWrite(key) || FileExists(path) || (!isDrive && folders_.count(std::u16string(parent)) == 0)) return false;
    folders_.insert(key);
    return true;
}

std::vector<std::u16string> FakeFileStore::List(std::u16string_view folder, std::u16string_view extension) {
    std::vector<std::u16string> paths;
    const std::u16string wanted = Key(folder);
    const std::u16string ending = FoldAscii(extension);
    for (const auto& [key, file] : files_) {
        const bool ends =
            key.size() >= ending.size() && key.compare(key.size() - ending.size(), ending.size(), ending) == 0;
        if (FolderOf(key) == wanted && ends) paths.push_back(file.path);
    }
    return paths;
}

std::u16string FakeFileStore::TemporaryName(std::u16string_view prefix) {
    return u"C:\\Temp\\" + std::u16string(prefix) + FormatInteger(++temporaryNames_) + u".tmp";
}

void FakeFileStore::Put(std::u16string_view path, std::string_view bytes) {
    const std::u16string key = Key(path);
    File& file = files_[key];
    if (file.path.empty()) file.path = path;
    file.bytes = bytes;
    durable_[key] = file;
    PutFoldersOf(path);
}

void FakeFileStore::PutFolder(std::u16string_view path) {
    folders_.insert(Key(path));
    PutFoldersOf(Key(path));
}

void FakeFileStore::PutFoldersOf(std::u16string_view path) {
    for (std::u16string_view folder = FolderOf(path); folder.size() > 2; folder = FolderOf(folder)) {
        folders_.insert(Key(folder));
    }
}

bool FakeFileStore::FolderExists(std::u16string_view path) const {
    return folders_.count(Key(path)) != 0;
}

void FakeFileStore::FailPath(std::u16string_view path) {
    failing_.insert(Key(path));
}
void FakeFileStore::HealPath(std::u16string_view path) {
    failing_.erase(Key(path));
}

}  // namespace quillo
