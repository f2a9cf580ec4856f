#include "notes/save_journal.h"

#include <array>
#include <optional>

#include "ports/file_store.h"
#include "ports/shell.h"
#include "util/ignore.h"
#include "util/path_text.h"
#include "util/unicode.h"

namespace quillo {
namespace {

constexpr std::string_view kHeading = "Quillo recovery 1";
constexpr std::string_view kLastLine = "end";
constexpr std::u16string_view kExtension = u".qlr";
constexpr std::array<std::string_view, 4> kKinds = {"write", "move", "recycle", "rescue"};
constexpr std::size_t kLines = 8;

std::string Hexadecimal(std::uint64_t number) {
    std::string text;
    do {
        text.insert(text.begin(), "0123456789abcdef"[number & 15U]);
        number >>= 4;
    } while (number != 0);
    return text;
}

std::uint64_t ReadHexadecimal(std::string_view text) {
    std::uint64_t number = 0;
    for (const char c : text) {
        const bool digit = c >= '0' && c <= '9';
        number = number << 4 | static_cast<std::uint64_t>(digit ? c - '0' : c - 'a' + 10);
    }
    return number;
}

std::string Format(const PendingStep& step) {
    std::string text;
    const auto line = [&text](std::string_view content) { text.append(content).append("\r\n"); };
    line(kHeading);
    line(kKinds[static_cast<std::size_t>(step.kind)]);
    line(EncodeUtf8(step.prepared));
    for (const FileVersion* file : {&step.from, &step.to}) {
        line(EncodeUtf8(file->path));
        line(Hexadecimal(file->hash));
    }
    line(kLastLine);
    return text;
}

/// The lines of a complete record; nothing for any other text.
std::optional<std::array<std::string_view, kLines>> SplitLines(std::string_view text) {
    std::array<std::string_view, kLines> lines;
    for (std::string_view& line : lines) {
        const std::size_t end = text.find("\r\n");
        if (end == std::string_view::npos) return std::nullopt;
        line = text.substr(0, end);
        text.remove_prefix(end + 2);
    }
    if (lines.front() != kHeading || lines.back() != kLastLine) return std::nullopt;
    return lines;
}

std::optional<PendingStep> Parse(std::string_view text) {
    const auto lines = SplitLines(text);
    if (!lines) return std::nullopt;
    const auto pathAt = [&](std::size_t i) {
        return DecodeUtf8((*lines)[i], LoneSurrogates::Accept).value_or(std::u16string());
    };
    for (std::size_t kind = 0; kind < kKinds.size(); ++kind) {
        if ((*lines)[1] != kKinds[kind]) continue;
        return PendingStep{static_cast<PendingStep::Kind>(kind),
                           pathAt(2),
                           {pathAt(3), ReadHexadecimal((*lines)[4])},
                           {pathAt(5), ReadHexadecimal((*lines)[6])}};
    }
    return std::nullopt;
}

}  // namespace

std::vector<std::u16string> SaveJournal::Folders() const {
    std::vector<std::u16string> folders = {JoinPath(FolderOfPath(notesFolder_), u"Recovery")};
    const std::u16string temporary = files_.TemporaryFolder();
    if (!temporary.empty()) folders.push_back(JoinPath(temporary, u"Quillo recovery"));
    return folders;
}

std::u16string SaveJournal::Begin(const PendingStep& step) {
    const std::u16string name = shell_.NewUniqueIdentifier();
    if (name.empty()) return {};
    const std::string text = Format(step);
    for (const std::u16string& folder : Folders()) {
        std::u16string path = JoinPath(folder, name + std::u16string(kExtension));
        FileError error = files_.Create(path, text);
        if (error == FileError::FolderMissing && files_.CreateFolder(folder)) error = files_.Create(path, text);
        if (error == FileError::None) return path;
    }
    return {};
}

void SaveJournal::End(std::u16string_view record) {
    if (!record.empty()) {
        Ignore(files_.Delete(record), "a record of a step that is complete changes nothing at the next start");
    }
}

std::vector<SaveJournal::Record> SaveJournal::Unfinished() {
    std::vector<Record> records;
    for (const std::u16string& folder : Folders()) {
        for (const FileEntry& file : files_.List(folder, kExtension)) {
            const std::optional<std::string> text = files_.Read(file.path);
            if (!text) continue;
            if (std::optional<PendingStep> step = Parse(*text)) {
                records.push_back({file.path, *std::move(step)});
            } else {
                End(file.path);
            }
        }
    }
    return records;
}

}  // namespace quillo
