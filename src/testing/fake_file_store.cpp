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

class FakeFileStore::Held : public HeldFile {
  public:
    Held(FakeFileStore& store, std::u16string key, std::string bytes)
        : store_(store), key_(std::move(key)), bytes_(std::move(bytes)) {
        store_.held_.insert(key_);
    }
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;
    ~Held() override { store_.held_.erase(key_); }

    [[nodiscard]] const std::string& Bytes() const override { return bytes_; }
    [[nodiscard]] FileError Delete() override {
        store_.held_.erase(key_);
        const FileError error = store_.Delete(store_.files_.at(key_).path);
        if (error != FileError::None) store_.held_.insert(key_);
        return error;
    }

  private:
    FakeFileStore& store_;
    std::u16string key_;
    std::string bytes_;
};

bool FakeFileStore::FileExists(std::u16string_view path) {
    return files_.count(Key(path)) != 0;
}

std::optional<FileEntry> FakeFileStore::Find(std::u16string_view path) {
    const auto file = files_.find(Key(path));
    if (file == files_.end()) return std::nullopt;
    return FileEntry{file->second.path, file->second.bytes.size(), file->second.modified};
}

std::optional<std::string> FakeFileStore::Read(std::u16string_view path) {
    const auto file = files_.find(Key(path));
    if (file == files_.end() || failing_.count(file->first) != 0) return std::nullopt;
    return file->second.bytes;
}

HoldResult FakeFileStore::Hold(std::u16string_view path, std::uint64_t mostBytes) {
    const std::u16string key = Key(path);
    if (failing_.count(key) != 0) return {nullptr, failing_.at(key)};
    const auto file = files_.find(key);
    if (file == files_.end()) return {nullptr, FileError::NotFound};
    if (file->second.bytes.size() > mostBytes) return {nullptr, FileError::TooLarge};
    return {std::make_unique<Held>(*this, key, file->second.bytes), FileError::None};
}

FileError FakeFileStore::Begin(std::u16string_view call, std::u16string_view path) {
    log.push_back(std::u16string(call) + u" " + std::u16string(path));
    ++calls_;
    if (!callsLeft_) return FileError::None;
    return (*callsLeft_)-- > 0 ? FileError::None : FileError::Failed;
}

FileError FakeFileStore::ErrorAt(const std::u16string& key) const {
    const auto failing = failing_.find(key);
    if (failing != failing_.end()) return failing->second;
    return held_.count(key) + heldShared_.count(key) != 0 ? FileError::InUse : FileError::None;
}

bool FakeFileStore::FitsOnDisk(std::size_t bytes) const {
    if (!capacity_) return true;
    for (const auto& [key, file] : files_) bytes += file.bytes.size();
    return bytes <= *capacity_;
}

FileError FakeFileStore::Create(std::u16string_view path, std::string_view bytes) {
    const std::u16string key = Key(path);
    const bool torn = powerCut_ && callsLeft_ == 0;
    const FileError begun = Begin(u"Create", path);
    if (torn && files_.count(key) == 0) Put(path, bytes.substr(0, bytes.size() / 2));
    if (begun != FileError::None) return begun;
    if (key.empty()) return FileError::FolderMissing;
    if (removedFolders_.count(std::u16string(FolderOf(key))) != 0) return FileError::FolderMissing;
    if (files_.count(key) != 0) return FileError::NameTaken;
    if (folders_.count(key) != 0) return FileError::NoPermission;
    if (const FileError error = ErrorAt(key); error != FileError::None) return error;
    if (failWrites_ || !FitsOnDisk(bytes.size())) return FileError::DiskFull;
    Put(path, bytes);
    return FileError::None;
}

FileError FakeFileStore::Move(std::u16string_view from, std::u16string_view to, bool overwrite) {
    const std::u16string source = Key(from);
    const std::u16string target = Key(to);
    if (const FileError error = ErrorAt(source); error != FileError::None) return error;
    if (const FileError error = ErrorAt(target); error != FileError::None) return error;
    const auto file = files_.find(source);
    if (file == files_.end()) return FileError::NotFound;
    if (folders_.count(target) != 0) return FileError::NoPermission;
    if (!overwrite && files_.count(target) != 0) return FileError::NameTaken;
    File moved = file->second;
    moved.path = files_.count(target) != 0 ? files_.at(target).path : std::u16string(to);
    files_.erase(file);
    files_[target] = std::move(moved);
    return FileError::None;
}

FileError FakeFileStore::MoveOver(std::u16string_view from, std::u16string_view to) {
    const FileError begun = Begin(u"MoveOver", to);
    return begun == FileError::None ? Move(from, to, true) : begun;
}

FileError FakeFileStore::Rename(std::u16string_view from, std::u16string_view to) {
    const FileError begun = Begin(u"Rename", to);
    return begun == FileError::None ? Move(from, to, false) : begun;
}

FileError FakeFileStore::Delete(std::u16string_view path) {
    const std::u16string key = Key(path);
    if (const FileError begun = Begin(u"Delete", path); begun != FileError::None) return begun;
    if (const FileError error = ErrorAt(key); error != FileError::None) return error;
    return files_.erase(key) != 0 ? FileError::None : FileError::NotFound;
}

bool FakeFileStore::CreateFolder(std::u16string_view path) {
    if (Begin(u"CreateFolder", path) != FileError::None) return false;
    if (FolderExists(path)) return true;
    const std::u16string key = Key(path);
    const std::u16string_view parent = FolderOf(key);
    const bool isDrive = parent.size() == 2 && parent[1] == u':';
    if (failWrites_ || failing_.count(key) != 0 || FileExists(path)) return false;
    if (!isDrive && folders_.count(std::u16string(parent)) == 0) return false;
    folders_.insert(key);
    removedFolders_.erase(key);
    return true;
}

std::vector<FileEntry> FakeFileStore::List(std::u16string_view folder, std::u16string_view extension) {
    std::vector<FileEntry> files;
    const std::u16string wanted = Key(folder);
    const std::u16string ending = FoldAscii(extension);
    for (const auto& [key, file] : files_) {
        if (FolderOf(key) == wanted && key.ends_with(ending)) {
            files.push_back({file.path, file.bytes.size(), file.modified});
        }
    }
    return files;
}

std::u16string FakeFileStore::TemporaryName(std::u16string_view prefix) {
    return u"C:\\Temp\\" + std::u16string(prefix) + FormatInteger(++temporaryNames_) + u".tmp";
}

void FakeFileStore::Put(std::u16string_view path, std::string_view bytes) {
    File& file = files_[Key(path)];
    if (file.path.empty()) file.path = path;
    file.bytes = bytes;
    file.modified = ++clock_;
    PutFoldersOf(path);
}

void FakeFileStore::Remove(std::u16string_view path) {
    files_.erase(Key(path));
}

void FakeFileStore::PutFolder(std::u16string_view path) {
    folders_.insert(Key(path));
    removedFolders_.erase(Key(path));
    PutFoldersOf(Key(path));
}

void FakeFileStore::RemoveFolder(std::u16string_view path) {
    const std::u16string key = Key(path);
    std::erase_if(files_, [&key](const auto& entry) { return FolderOf(entry.first) == key; });
    folders_.erase(key);
    removedFolders_.insert(key);
}

void FakeFileStore::PutFoldersOf(std::u16string_view path) {
    for (std::u16string_view folder = FolderOf(path); folder.size() > 2; folder = FolderOf(folder)) {
        folders_.insert(Key(folder));
    }
}

bool FakeFileStore::FolderExists(std::u16string_view path) const {
    return folders_.count(Key(path)) != 0;
}

std::vector<std::u16string> FakeFileStore::PathsEndingIn(std::u16string_view ending) const {
    std::vector<std::u16string> paths;
    for (const auto& [key, file] : files_) {
        if (key.ends_with(FoldAscii(ending))) paths.push_back(file.path);
    }
    return paths;
}

void FakeFileStore::FailPath(std::u16string_view path, FileError error) {
    failing_[Key(path)] = error;
}

void FakeFileStore::HealPath(std::u16string_view path) {
    failing_.erase(Key(path));
}

void FakeFileStore::HoldShared(std::u16string_view path) {
    heldShared_.insert(Key(path));
}

void FakeFileStore::ReleaseShared(std::u16string_view path) {
    heldShared_.erase(Key(path));
}

void FakeFileStore::FailAfter(int calls) {
    callsLeft_ = calls;
    calls_ = 0;
    powerCut_ = false;
}

void FakeFileStore::CutPowerAfter(int calls) {
    FailAfter(calls);
    powerCut_ = true;
}

void FakeFileStore::Revive() {
    callsLeft_.reset();
    calls_ = 0;
    powerCut_ = false;
    failWrites_ = false;
}

}  // namespace quillo
