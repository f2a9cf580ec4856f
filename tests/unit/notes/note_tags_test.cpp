#include "notes/note_tags.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <random>
#include <string>

#include "testing/fake_locale_text.h"

namespace quillo {
namespace {

const Note kBefore{false, false, ColorWord{1}, ColorWord{2}, ColorWord{3}, false, {}, false, false, u"", u"", u""};

TagElements Find(std::u16string_view text) {
    FakeLocaleText locale;
    return FindTagElements(text, locale);
}

TEST(FindTagElements, FindsAllInAnyCaseAndOrder) {
    const TagElements tags = Find(
        u"  <REMINDER>#1</Reminder><Position>1,2,3,4</POSITION>junk<appearance>True</appearance>"
        u"<FileName>C:\\\u00C4B.QLN</filename><tempfilename>D:\\X</TempFileName> ");
    EXPECT_EQ(tags.reminder, u"#1");
    EXPECT_EQ(tags.position, u"1,2,3,4");
    EXPECT_EQ(tags.appearance, u"true");
    EXPECT_EQ(tags.filename, u"c:\\\u00E4b.qln") << "paths too are in lower case";
    EXPECT_EQ(tags.tempfilename, u"d:\\x");
    EXPECT_TRUE(tags.namesFile);
}

TEST(FindTagElements, ThresholdsCountFromTheStartOfTheText) {
    const struct {
        const char16_t* name;
        std::optional<std::u16string> TagElements::*element;
        std::size_t threshold;
    } cases[] = {{u"position", &TagElements::position, 12},
                 {u"reminder", &TagElements::reminder, 12},
                 {u"appearance", &TagElements::appearance, 14},
                 {u"filename", &TagElements::filename, 12},
                 {u"tempfilename", &TagElements::tempfilename, 16}};
    for (const auto& c : cases) {
        const std::u16string name = c.name;
        const std::u16string open = u"<" + name + u">";
        const std::u16string close = u"</" + name + u">";
        for (std::size_t size = 0; size < 4; ++size) {
            const std::u16string content(size, u'7');
            const auto found = Find(open + content + close).*c.element;
            EXPECT_EQ(found.has_value(), open.size() + size >= c.threshold) << size;
        }
        const std::u16string before(c.threshold, u'-');
        EXPECT_EQ(Find(before + open + close).*c.element, u"") << "far from the start even an empty one counts";
        EXPECT_FALSE((Find(before + close + open + u"1").*c.element).has_value()) << "closed before it opens";
        EXPECT_FALSE((Find(before + open + u"1").*c.element).has_value());
        EXPECT_FALSE((Find(before + u"1" + close).*c.element).has_value());
    }
}

TEST(FindTagElements, RootTagsAreTreatedAsTheyStand) {
    const std::u16string inside = u"<position>1,2,3,4</position>";
    EXPECT_EQ(Find(u"<QUILLO>" + inside).position, u"1,2,3,4") << "an opening root is dropped";
    EXPECT_FALSE(Find(inside + u"</Quillo>").position.has_value()) << "intended: a closing root throws all away";
    EXPECT_FALSE(Find(u"<quillo>" + inside + u"</quillo>").position.has_value());
    EXPECT_FALSE(Find(u"</quillo>").position.has_value());
    EXPECT_EQ(Find(u"<quillo><position>1</position>").position, std::nullopt) << "counted after the root";
}

TEST(ReadPosition, Table) {
    FakeLocaleText locale;
    const TwipsRect before{10, 20, 30, 40};
    const struct {
        const char16_t* text;
        TwipsRect expected;
    } cases[] = {{u"100,200,300,400", {100, 200, 300, 400}},
                 {u"100,200", {100, 200, 0, 0}},
                 {u"1,2,3,4,5", {1, 2, 3, 4}},
                 {u"x,2,y,4", {10, 2, 30, 4}},
                 {u",2,,4", {10, 2, 30, 4}},
                 {u"", {0, 0, 0, 0}},
                 {u"-15, 2 ,1.5,1e3", {-15, 2, 1.5, 1000}},
                 {u"1e39,2,3,4", {10, 2, 3, 4}}};
    for (const auto& c : cases) EXPECT_EQ(ReadPosition(c.text, before, locale), c.expected);
}

TEST(Appearance, IsWrittenAndReadAgain) {
    FakeLocaleText locale;
    std::mt19937 random(3);
    for (int round = 0; round < 2000; ++round) {
        Note note = kBefore;
        note.LargeText = random() % 2 == 0;
        note.OwnColors = random() % 2 == 0;
        note.NoteColor.value = static_cast<std::uint32_t>(random());
        note.BorderColor.value = static_cast<std::uint32_t>(random());
        note.TextColor.value = static_cast<std::uint32_t>(random());
        const int state = static_cast<int>(random() % 3);
        Note read = kBefore;
        const std::u16string text = WriteAppearance(note, static_cast<WindowState>(state));
        ASSERT_EQ(ReadAppearance(text, read, locale), state);
        ASSERT_EQ(WriteAppearance(read, static_cast<WindowState>(state)), text);
    }
    Note plain = kBefore;
    plain.NoteColor.value = 14155262;
    plain.BorderColor.value = 3723262;
    plain.TextColor.value = 0;
    EXPECT_EQ(WriteAppearance(plain, WindowState::Hidden), u"False,False,14155262,3723262,0,1");
}

TEST(Appearance, Table) {
    FakeLocaleText locale;
    const struct {
        const char16_t* text;
        const char16_t* written;
        std::optional<int> state;
    } cases[] = {
        {u"True,True,255", u"True,True,255,0,0,0", 0},
        {u"", u"False,False,0,0,0,0", 0},
        {u"true,FALSE,4,5,6,1", u"True,False,4,5,6,0", 1},
        {u"-1,0,4,5,6,-2", u"True,False,4,5,6,0", 2},
        {u"2.5,yes,4,5,6,2", u"True,False,4,5,6,0", 2},
        {u",,,,,", u"False,False,1,2,3,0", std::nullopt},
        {u"x,x,x,x,x,x", u"False,False,1,2,3,0", std::nullopt},
        {u"0,0,2.5,3.5,-1,7", u"False,False,2,4,-1,0", 7},
        {u"0,0,2147483648,-2147483648,3e9,-2147483648", u"False,False,1,-2147483648,3,0",
         std::numeric_limits<int>::max()},
        {u"0,0,4,5,6,0,9,9", u"False,False,4,5,6,0", 0},
    };
    for (const auto& c : cases) {
        Note note = kBefore;
        EXPECT_EQ(ReadAppearance(c.text, note, locale), c.state);
        EXPECT_EQ(WriteAppearance(note, WindowState::Shown), c.written);
    }
}

TEST(Reminder, Table) {
    FakeLocaleText locale;
    const struct {
        const char16_t* text;
        bool set;
        double days;
    } cases[] = {{u"#45123.75", true, 45123.75},
                 {u"  #45123.75  ", true, 45123.75},
                 {u"#abc", true, 0},
                 {u"#", true, 0},
                 {u"#12x", true, 12},
                 {u"", true, 5},
                 {u"   ", true, 5},
                 {u"7/16/2023 6:00:00 pm", true, 45123.75},
                 {u"7/16/2023", true, 45123},
                 {u"tomorrow", false, 5},
                 {u"#1e30", false, 5},
                 {u"#2958466", false, 5},
                 {u"#-657434", true, -657434},
                 {u"#-657435", false, 5}};
    for (const auto& c : cases) {
        Note note = kBefore;
        note.ReminderSet = true;
        note.ReminderTime = {5};
        ReadReminder(c.text, note, locale);
        EXPECT_EQ(note.ReminderSet, c.set) << c.days;
        EXPECT_EQ(note.ReminderTime.days, c.days);
    }
    Note without = kBefore;
    ReadReminder(u"", without, locale);
    EXPECT_FALSE(without.ReminderSet);
    EXPECT_EQ(WriteReminder(without), u"");
    without.ReminderSet = true;
    without.ReminderTime = {45123.75};
    EXPECT_EQ(WriteReminder(without), u"#45123.75");
}

TEST(ReadFileName, Table) {
    FakeLocaleText locale;
    const std::u16string own = u"<filename>C:\\Old\\A.qln</filename>";
    const std::u16string temp = u"<tempfilename>C:\\Old\\A.qln</tempfilename>";
    const struct {
        const char* name;
        std::u16string tags, opened, expected;
    } cases[] = {
        {"the real place wins", own, u"D:\\New\\A.qln", u"D:\\New\\A.qln"},
        {"also when the element is damaged", u"<filename>x", u"D:\\A.qln", u"D:\\A.qln"},
        {"without a file the stored path", own, u"", u"c:\\old\\a.qln"},
        {"only with the extension", u"<filename>C:\\Old\\A.txt</filename>", u"", u""},
        {"and with a name before it", u"--<filename>.qln</filename>", u"", u""},
        {"the file the program named", temp, u"C:\\OLD\\a.qln", u""},
        {"that file elsewhere", temp, u"D:\\New\\A.qln", u"D:\\New\\A.qln"},
        {"that file from nowhere", temp, u"", u""},
        {"a storage copy", u"<nodelete></nodelete>", u"C:\\A.qln", u""},
        {"a name the code page lacks", u"<tempfilename>C:\\?.qln</tempfilename>", u"C:\\\u0416.qln", u""},
    };
    for (const auto& c : cases) EXPECT_EQ(ReadFileName(Find(c.tags), c.opened, u"", locale), c.expected) << c.name;
    EXPECT_EQ(ReadFileName(Find(temp), u"D:\\A.qln", u"E:\\mine.qln", locale), u"E:\\mine.qln");
}

}  // namespace
}  // namespace quillo
