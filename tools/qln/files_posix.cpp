#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>

#include "files.h"
#include "util/ignore.h"

namespace quillo::qln {
namespace {

/// A file descriptor that is closed automatically.
class Descriptor {
  public:
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() {
        if (number_ >= 0) Ignore(close(number_), "nothing can be done about it");
    }
    explicit operator bool() const { return number_ >= 0; }
    [[nodiscard]] int Get() const { return number_; }

  private:
    int number_;
};

FolderEntry EntryOf(std::string name, const struct stat& facts) {
    constexpr FileTime kSecond = 1'000'000'000;
    return {std::move(name), static_cast<std::uint64_t>(facts.st_size),
            FileTime{facts.st_mtim.tv_sec} * kSecond + facts.st_mtim.tv_nsec};
}

bool WriteAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = write(file, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

/// Makes the names of a folder durable.
void FlushFolderOf(const std::string& path) {
    const std::filesystem::path folder = std::filesystem::path(path).parent_path();
    const Descriptor opened(open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (opened) Ignore(fsync(opened.Get()), "the file itself is durable; the name follows with the next flush");
}

}  // namespace

std::optional<std::vector<FolderEntry>> ListFiles(const std::string& folder) {
    const std::unique_ptr<DIR, int (*)(DIR*)> opened(opendir(folder.c_str()), closedir);
    if (!opened) return std::nullopt;
    std::vector<FolderEntry> entries;
    const int at = dirfd(opened.get());
    while (const dirent* entry = readdir(opened.get())) {
        if (entry->d_type != DT_REG && entry->d_type != DT_LNK && entry->d_type != DT_UNKNOWN) continue;
        struct stat facts {};
        if (fstatat(at, entry->d_name, &facts, 0) != 0 || !S_ISREG(facts.st_mode)) continue;
        entries.push_back(EntryOf(entry->d_name, facts));
    }
    return entries;
}

std::optional<FolderEntry> FactsOf(const std::string& path) {
    struct stat facts {};
    if (stat(path.c_str(), &facts) != 0 || !S_ISREG(facts.st_mode)) return std::nullopt;
    return EntryOf(std::string(LastPart(path)), facts);
}

bool IsFile(const std::string& path) {
    return FactsOf(path).has_value();
}

bool IsFolder(const std::string& path) {
    struct stat facts {};
    return stat(path.c_str(), &facts) == 0 && S_ISDIR(facts.st_mode);
}

bool ReadInto(const std::string& path, std::string& bytes) {
    const Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC));
    struct stat facts {};
    if (!file || fstat(file.Get(), &facts) != 0 || !S_ISREG(facts.st_mode)) return false;
    const auto size = static_cast<std::uint64_t>(facts.st_size);
    if (size > kLargestFile) return false;
    bytes.resize(static_cast<std::size_t>(size));
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t count = read(file.Get(), bytes.data() + done, bytes.size() - done);
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return false;  // shorter than reported: another program is writing it
        done += static_cast<std::size_t>(count);
    }
    return true;
}

bool WriteNewFile(const std::string& path, std::string_view bytes) {
    constexpr mode_t kEveryoneReads = 0666;
    const Descriptor file(open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kEveryoneReads));
    if (!file) return false;
    if (WriteAll(file.Get(), bytes) && fsync(file.Get()) == 0) return true;
    Ignore(unlink(path.c_str()), "an unfinished file only occupies space");
    return false;
}

bool OverwriteFile(const std::string& path, std::string_view bytes) {
    const std::string fresh = path + "-part";
    Ignore(unlink(fresh.c_str()), "a leftover of an interrupted run, or nothing");
    if (!WriteNewFile(fresh, bytes)) return false;
    if (rename(fresh.c_str(), path.c_str()) == 0) {
        FlushFolderOf(path);
        return true;
    }
    Ignore(unlink(fresh.c_str()), "the old file stays; the unfinished new one only occupies space");
    return false;
}

bool MoveToFreeName(const std::string& from, const std::string& to) {
    if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) {
        FlushFolderOf(to);
        return true;
    }
    if (errno != EINVAL && errno != ENOSYS) return false;
    // An older file system: creating a second name never replaces a file either.
    if (link(from.c_str(), to.c_str()) != 0) return false;
    Ignore(unlink(from.c_str()), "both names then lead to the same bytes");
    FlushFolderOf(to);
    return true;
}

bool RemoveFile(const std::string& path) {
    return unlink(path.c_str()) == 0;
}

bool MakeFolder(const std::string& path) {
    constexpr mode_t kEveryoneEnters = 0777;
    return mkdir(path.c_str(), kEveryoneEnters) == 0;
}

std::string AbsolutePath(const std::string& path) {
    std::error_code error;
    const std::filesystem::path whole = std::filesystem::weakly_canonical(path, error);
    return error ? path : whole.string();
}

bool SetModified(const std::string& path, FileTime modified) {
    constexpr FileTime kSecond = 1'000'000'000;
    const timespec time{static_cast<time_t>(modified / kSecond), static_cast<long>(modified % kSecond)};
    const timespec times[2] = {time, time};
    return utimensat(AT_FDCWD, path.c_str(), times, 0) == 0;
}

}  // namespace quillo::qln
