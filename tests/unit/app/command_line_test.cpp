#include "app/command_line.h"

#include <gtest/gtest.h>

#include "testing/fake_shell.h"

namespace quillo {
namespace {

using Kind = Command::Kind;

struct LineCase {
    std::u16string_view commandLine;
    Command expected;
};

TEST(CommandLine, FirstStart) {
    const LineCase cases[] = {
        {u"", {Kind::None, u""}},
        {u"   ", {Kind::None, u""}},
        {u"/close", {Kind::Close, u""}},
        {u"  /CLOSE  ", {Kind::Close, u""}},
        {u"/Closed for today", {Kind::Close, u""}},
        {u"/clos", {Kind::Unknown, u"/clos"}},
        {u"/new", {Kind::Unknown, u"/new"}},
        {u" /New thing ", {Kind::Unknown, u"/New thing"}},
        {u"/x", {Kind::Unknown, u"/x"}},
        {u"/", {Kind::Unknown, u"/"}},
        {u"C:\\a b.qln", {Kind::OpenFile, u"C:\\a b.qln"}},
        {u" \"C:\\a b.qln\" ", {Kind::OpenFile, u"\"C:\\a b.qln\""}},
        {u"@C:\\a.qln", {Kind::OpenFile, u"C:\\a.qln"}},
        {u" @  C:\\a.qln ", {Kind::OpenFile, u"C:\\a.qln"}},
        {u"@@C:\\a.qln", {Kind::OpenFile, u"@C:\\a.qln"}},
        {u"close", {Kind::OpenFile, u"close"}},
    };
    for (const LineCase& c : cases) {
        const Command command = ClassifyFirstStart(c.commandLine);
        EXPECT_EQ(command.kind, c.expected.kind) << testing::PrintToString(std::u16string(c.commandLine));
        EXPECT_EQ(command.text, c.expected.text);
    }
}

TEST(CommandLine, ReceivedByTheRunningInstance) {
    const LineCase cases[] = {
        {u"", {Kind::None, u""}},
        {u"/CLOSE", {Kind::Close, u""}},
        {u"/close please", {Kind::Close, u""}},
        {u"/closest", {Kind::Close, u""}},
        {u"/new", {Kind::New, u""}},
        {u"/newer", {Kind::New, u""}},
        {u"/NEW", {Kind::New, u""}},
        {u"/ne", {Kind::None, u""}},
        {u"/x", {Kind::None, u""}},
        {u"/", {Kind::None, u""}},
        {u"@ C:\\a b.qln ", {Kind::OpenFile, u"C:\\a b.qln"}},
        {u"  @C:\\a.qln", {Kind::OpenFile, u"C:\\a.qln"}},
        {u"C:\\a.qln", {Kind::OpenFile, u"C:\\a.qln"}},
        // Only a slash at the very beginning makes a command.
        {u" /close", {Kind::OpenFile, u"/close"}},
        {u"  ", {Kind::OpenFile, u""}},
    };
    for (const LineCase& c : cases) {
        const Command command = ClassifyReceived(c.commandLine);
        EXPECT_EQ(command.kind, c.expected.kind) << testing::PrintToString(std::u16string(c.commandLine));
        EXPECT_EQ(command.text, c.expected.text);
    }
}

}  // namespace
}  // namespace quillo
