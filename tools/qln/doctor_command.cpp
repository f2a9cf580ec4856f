#include <algorithm>
#include <map>

#include "commands.h"
#include "diagnosis.h"
#include "note_library.h"
#include "note_maker.h"
#include "util/ignore.h"
#include "words.h"

namespace quillo::qln {
namespace {

constexpr std::string_view kLeftoverEndings[] = {"-part", ".new"};

/// The findings in the notes folder, in the order of the files' names; nothing after an error message.
std::optional<std::vector<Finding>> Examine(const Session& session) {
    const std::string& folder = session.place.notesFolder;
    auto files = ListFiles(folder);
    if (!files) {
        Complain(session.Terminal(), "the notes folder cannot be read: " + HarmlessName(folder));
        return std::nullopt;
    }
    std::sort(files->begin(), files->end(), [](const auto& a, const auto& b) { return a.name < b.name; });
    std::vector<Finding> findings;
    std::map<std::string, std::string> seen;  // bytes to the first file with them
    for (const FolderEntry& file : *files) {
        Finding finding;
        finding.path = JoinPaths(folder, file.name);
        const bool leftover = IsLeftoverName(file.name);
        if (!leftover && !HasNoteEnding(file.name)) continue;
        if (!ReadInto(finding.path, finding.bytes)) {
            if (file.size <= kLargestFile) continue;  // deleted, or being written
            finding.fault = Fault::TooLarge;
            findings.push_back(std::move(finding));
            continue;
        }
        const auto fault = leftover ? std::optional(Fault::Leftover) : Diagnose(finding.bytes, *session.place.locale);
        if (fault) {
            finding.fault = *fault;
            findings.push_back(std::move(finding));
            continue;
        }
        const auto [first, fresh] = seen.emplace(finding.bytes, file.name);
        if (fresh) continue;
        finding.fault = Fault::Doubled;
        finding.other = first->second;
        findings.push_back(std::move(finding));
    }
    return findings;
}

/// The name that the file would have had after a complete write.
std::string NameMeant(std::string path) {
    for (bool cut = true; cut;) {
        cut = false;
        for (const std::string_view ending : kLeftoverEndings) {
            if (!path.ends_with(ending)) continue;
            path.resize(path.size() - ending.size());
            cut = true;
        }
    }
    return path;
}

/// Removes the examined file; its copy is kept.
bool TakeAway(const Finding& finding) {
    return RemoveFile(finding.path);
}

/// Repairs one file that has a copy; returns what was done, or "" for nothing.
std::string Mend(const Session& session, const Finding& finding) {
    LocaleText& locale = *session.place.locale;
    switch (finding.fault) {
        case Fault::Torn:
        case Fault::DamagedUnicode: {
            const auto bytes = Mended(finding, locale);
            return bytes && OverwriteFile(finding.path, *bytes) ? "written again" : "";
        }
        case Fault::Empty:
            return TakeAway(finding) ? "taken away, it holds no note" : "";
        case Fault::Leftover: {
            // A complete note whose file is missing was about to be saved for the first time.
            const std::string meant = NameMeant(finding.path);
            const bool whole = !Diagnose(finding.bytes, locale) && ParseNoteFile(finding.bytes, locale).hasTags;
            if (whole && !IsFile(meant)) return MoveToFreeName(finding.path, meant) ? "made a note again" : "";
            return TakeAway(finding) ? "taken away" : "";
        }
        default:
            return "";
    }
}

bool CanMend(Fault fault) {
    return fault != Fault::Doubled && fault != Fault::TooLarge && fault != Fault::Nulls;
}

std::string ParentOf(const std::string& folder) {
    const std::string whole = AbsolutePath(folder);
    const std::size_t name = LastPart(whole).size();
    return whole.substr(0, whole.size() - name - (whole.size() > name + 1 ? 1 : 0));
}

int Repair(const Session& session, const std::vector<Finding>& findings) {
    Console& console = session.Terminal();
    std::string copies;
    int code = kDone;
    for (const Finding& finding : findings) {
        const std::string name = HarmlessName(LastPart(finding.path));
        if (!CanMend(finding.fault)) {
            console.Out(name + ": left as it is\n");
            continue;
        }
        if (session.place.channel->Answers()) {
            Complain(console, "Quillo has been started meanwhile; nothing more is mended");
            return kFailed;
        }
        if (copies.empty()) {
            copies = MakeDatedFolder(console, ParentOf(session.place.notesFolder),
                                     "Repaired " + DateForName(session.host.Time().Now()));
            if (copies.empty()) return kFailed;
            console.Out("Copies are kept in " + HarmlessName(copies) + "\n");
        }
        const std::string copy = JoinPaths(copies, LastPart(finding.path));
        const bool kept = CopyWhole(console, finding.path, copy) && ReadBytes(copy) == finding.bytes &&
                          ReadBytes(finding.path) == finding.bytes;
        const std::string done = kept ? Mend(session, finding) : "";
        if (done.empty()) code = kFailed;
        console.Out(name + ": " + (done.empty() ? "left as it is, it has changed or cannot be written" : done) + "\n");
    }
    return code;
}

}  // namespace

int Doctor(const Session& session) {
    Console& console = session.Terminal();
    if (session.options.repair && session.place.channel->Answers()) {
        Complain(console, "Quillo is running; end it first (qln quit)");
        return kFailed;
    }
    const auto findings = Examine(session);
    if (!findings) return kFailed;
    for (const Finding& finding : *findings) {
        const std::string other = finding.other.empty() ? "" : " of " + HarmlessName(finding.other);
        console.Out(HarmlessName(LastPart(finding.path)) + ": " + Describe(finding.fault) + other + "\n");
    }
    if (findings->empty()) {
        console.Out("Nothing is wrong.\n");
        return kDone;
    }
    return session.options.repair ? Repair(session, *findings) : kNothingFound;
}

}  // namespace quillo::qln
