#include "testing/fake_shell.h"

#include <algorithm>

#include "testing/fake_file_store.h"
#include "util/numbers.h"
#include "util/text.h"

namespace quillo {
namespace {

std::u16string WithArguments(std::u16string_view path, std::u16string_view arguments) {
    std::u16string text(path);
    if (!arguments.empty()) text.append(u" ").append(arguments);
    return text;
}

}  // namespace

bool FakeShell::IgnoreCase::operator()(const std::u16string& a, const std::u16string& b) const {
    return FoldAscii(a) < FoldAscii(b);
}

FakeShell::FakeShell() {
    const std::u16string ann = u"C:\\Users\\ann";
    folders_ = {{SpecialFolder::Desktop, ann + u"\\Desktop"},
                {SpecialFolder::Documents, ann + u"\\Documents"},
                {SpecialFolder::DesktopDirectory, ann + u"\\Desktop"},
                {SpecialFolder::RoamingApplicationData, ann + u"\\AppData\\Roaming"},
                {SpecialFolder::LocalApplicationData, ann + u"\\AppData\\Local"},
                {SpecialFolder::ProgramFiles, u"C:\\Program Files"}};
}

FakeShell::FakeShell(FakeFileStore& files) : FakeShell() {
    files_ = &files;
    for (const auto& [folder, path] : folders_) files.PutFolder(path);
}

std::u16string FakeShell::FolderPath(SpecialFolder folder) {
    return folders_[folder];
}

std::u16string FakeShell::FullPath(std::u16string_view path) {
    const bool absolute = path.size() >= 2 && (path[1] == u':' || path.substr(0, 2) == u"\\\\");
    return absolute ? std::u16string(path) : currentFolder + u"\\" + std::u16string(path);
}

std::u16string FakeShell::FullLongPath(std::u16string_view path) {
    const std::u16string full = FullPath(path);
    std::u16string resolved;
    for (std::size_t start = 0; start <= full.size();) {
        const std::size_t end = std::min(full.find(u'\\', start), full.size());
        const std::u16string part = full.substr(start, end - start);
        const auto known = longNames.find(part);
        if (start > 0) resolved += u'\\';
        resolved += known == longNames.end() ? part : known->second;
        start = end + 1;
    }
    return resolved;
}

bool FakeShell::Open(std::u16string_view path, std::u16string_view arguments) {
    opened.push_back(WithArguments(path, arguments));
    return openWorks;
}

bool FakeShell::Start(std::u16string_view program, std::u16string_view arguments) {
    started.push_back(WithArguments(program, arguments));
    return startWorks;
}

std::u16string FakeShell::LinkTarget(std::u16string_view path) {
    const auto link = linkTargets.find(std::u16string(path));
    return link == linkTargets.end() ? std::u16string() : link->second;
}

RecycleResult FakeShell::Recycle(std::u16string_view path) {
    if (recycling == RecycleResult::Stays) return recycling;
    Recycled entry{std::u16string(path), {}};
    if (files_ != nullptr) {
        const auto content = files_->Read(path);
        if (!content || files_->Delete(path) != FileError::None) return RecycleResult::Stays;
        entry.content = *content;
    }
    if (recycling == RecycleResult::Moved) recycled.push_back(entry);
    return recycling;
}

std::u16string FakeShell::NewUniqueIdentifier() {
    const std::u16string digits = FormatInteger(++identifiers_);
    return u"{00000000-0000-0000-0000-" + std::u16string(12 - digits.size(), u'0') + digits + u"}";
}

void FakeShell::SetLink(std::u16string_view path, std::u16string_view target) {
    linkTargets[std::u16string(path)] = target;
}

}  // namespace quillo
