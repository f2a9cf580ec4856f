#include "notes/disk_reserve.h"

#include <algorithm>

#include "ports/file_store.h"
#include "util/ignore.h"
#include "util/path_text.h"

namespace quillo {
namespace {

constexpr std::uint64_t kLeastBytes = std::uint64_t{256} * 1024;

/// Bytes that no file system makes smaller by compression.
std::string Filling(std::uint64_t size) {
    std::string bytes(static_cast<std::size_t>(size), '\0');
    std::uint32_t state = 1;
    for (char& byte : bytes) {
        state = state * 1664525U + 1013904223U;
        byte = static_cast<char>(state >> 24);
    }
    return bytes;
}

}  // namespace

std::u16string DiskReserve::Path() const {
    return JoinPath(FolderOfPath(notesFolder_), u"Quillo.reserve");
}

bool DiskReserve::GiveUp() {
    size_ = 0;
    return files_.Delete(Path()) == FileError::None;
}

void DiskReserve::Keep(std::uint64_t bytes) {
    const std::uint64_t wanted = (std::max(bytes, kLeastBytes) + kLeastBytes - 1) / kLeastBytes * kLeastBytes;
    if (size_ >= wanted) return;
    const std::u16string path = Path();
    if (const auto file = files_.Find(path)) size_ = file->size;
    if (size_ >= wanted) return;
    if (size_ != 0) Ignore(files_.Delete(path), "the smaller one is better than none");
    const bool made = files_.Create(path, Filling(wanted)) == FileError::None;
    size_ = made ? wanted : 0;
}

}  // namespace quillo
