#include "app/command_line.h"

#include "ports/shell.h"
#include "util/path_text.h"
#include "util/text.h"

namespace quillo {

namespace {

constexpr std::u16string_view kClose = u"/close";
constexpr std::u16string_view kNew = u"/new";

/// The path of a command line that begins with "@" or is a path, without blanks around it.
std::u16string_view PathOf(std::u16string_view commandLine) {
    commandLine = Trim(commandLine);
    if (!commandLine.empty() && commandLine.front() == u'@') commandLine = Trim(commandLine.substr(1));
    return commandLine;
}

}  // namespace

Command ClassifyFirstStart(std::u16string_view commandLine) {
    const std::u16string_view trimmed = Trim(commandLine);
    if (trimmed.empty()) return {};
    if (StartsWithIgnoringAsciiCase(trimmed, kClose)) return {Command::Kind::Close, {}};
    // Intended: "/new" is for a running instance only; in a first start it is unknown.
    if (trimmed.front() == u'/') return {Command::Kind::Unknown, std::u16string(trimmed)};
    return {Command::Kind::OpenFile, std::u16string(PathOf(trimmed))};
}

Command ClassifyReceived(std::u16string_view text) {
    if (text.empty()) return {};
    if (text.front() != u'/') return {Command::Kind::OpenFile, std::u16string(PathOf(text))};
    if (StartsWithIgnoringAsciiCase(text, kClose)) return {Command::Kind::Close, {}};
    if (StartsWithIgnoringAsciiCase(text, kNew)) return {Command::Kind::New, {}};
    return {};
}

std::u16string CommandLineToSend(std::u16string_view commandLine, Shell& shell) {
    const std::u16string_view trimmed = Trim(commandLine);
    if (trimmed.empty() || trimmed.front() == u'/') return std::u16string(trimmed);
    const std::u16string_view path = StripQuotes(PathOf(trimmed));
    if (path.empty()) return std::u16string(trimmed);
    const std::u16string mark(trimmed.front() == u'@' ? u"@" : u"");
    return mark + shell.FullPath(path);
}

}  // namespace quillo
