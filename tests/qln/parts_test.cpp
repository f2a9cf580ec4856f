#include <gtest/gtest.h>

#include "code_page.h"
#include "folding.h"
#include "iso_time.h"
#include "path_list.h"
#include "places.h"
#include "prefix_locale.h"
#include "reg_text.h"
#include "registry/tessel_registry.h"
#include "util/numbers.h"
#include "words.h"

namespace quillo::qln {
namespace {

TEST(QlnFolding, CaseAndAccentsAreIgnored) {
    const struct {
        std::u16string_view text, folded;
    } cases[] = {
        {u"Caf\u00C9", u"cafe"},
        {u"cafe\u0301", u"cafe"},
        {u"STRASSE", u"strasse"},
        {u"Stra\u00DFe", u"strasse"},
        {u"\u0130", u"i"},
        {u"\u03A3\u03C2", u"\u03C3\u03C3"},
        {u"\u0416\u0451", u"\u0436\u0435"},
        {u"\u1E9E", u"ss"},
        {u"\uFB01n", u"fin"},
        {u"\u304C", u"\u304B\u3099"},
        {u"\uD55C", u"\uD55C"},
        {u"\U00010400", u"\U00010428"},
        {u"\U0001F58B", u"\U0001F58B"},
        {u"\x9f\u00D8", u"\x9f\u00F8"},
    };
    for (const auto& c : cases) EXPECT_EQ(Fold(c.text), c.folded);
    const std::u16string lone(1, u'\xD800');
    EXPECT_EQ(Fold(lone), lone);
}

TEST(QlnFolding, EachFoldedUnitHasItsOrigin) {
    const FoldedText folded = FoldWithOrigin(u"a\u00DF\U00010400b");
    EXPECT_EQ(folded.folded, u"ass\U00010428b");
    EXPECT_EQ(folded.origin, (std::vector<std::size_t>{0, 1, 1, 2, 2, 4, 5}));
}

TEST(QlnCodePage, EveryByteIsRestored) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
    for (const int number : {874, 1250, 1251, 1252, 1253, 1254, 1255, 1256, 1257, 1258}) {
        const auto page = CodePage::Find(number);
        ASSERT_TRUE(page) << number;
        EXPECT_EQ(page->Encode(page->Decode(all)), all) << number;
    }
    EXPECT_FALSE(CodePage::Find(932));
    EXPECT_EQ(CodePage::Find(1252)->Encode(u"\u20AC\u0416"), "\x80?");
    EXPECT_EQ(CodePage::Find(1251)->Decode("\xC6"), u"\u0416");
    EXPECT_EQ(CodePage::Find(65001)->Decode("\xC3\xA9"), u"\u00E9");
    EXPECT_EQ(CodePage::Find(65001)->Decode("a\xC3"), u"a\uFFFD");
}

TEST(QlnIsoTime, ReadsItsOwnOutput) {
    const DaySerial when = ToDaySerial({2026, 2, 28, 23, 59, 58});
    EXPECT_EQ(FormatIsoTime(when, 'T'), "2026-02-28T23:59:58");
    EXPECT_EQ(ParseIsoTime(u"2026-02-28T23:59:58"), when);
    EXPECT_EQ(ParseIsoTime(u"2026-02-28 23:59"), ToDaySerial({2026, 2, 28, 23, 59, 0}));
    EXPECT_EQ(ParseIsoTime(u"2026-02-28"), ToDaySerial({2026, 2, 28, 0, 0, 0}));
    for (const auto* text : {u"", u"2026-02-29", u"2026-13-01", u"2026-2-1", u"2026-02-28 24:00", u"2026-02-28x",
                             u"2026-02-28 23:59:", u"0000-01-01"}) {
        EXPECT_FALSE(ParseIsoTime(text));
    }
}

TEST(QlnPrefixLocale, WritesDatesInThePrefixsFormat) {
    const DaySerial when = ToDaySerial({2026, 11, 5, 15, 4, 9});
    PrefixLocale american(*CodePage::Find(1252), Regional{});
    EXPECT_EQ(american.GeneralDate(when), u"11/5/2026 3:04:09 PM");
    EXPECT_EQ(american.GeneralDate(ToDaySerial({2026, 11, 5, 0, 0, 0})), u"11/5/2026");
    EXPECT_EQ(american.GeneralDate(ToDaySerial({1899, 12, 30, 0, 5, 0})), u"12:05:00 AM");
    PrefixLocale german(*CodePage::Find(1252), Regional{u",", u"dddd', den' d. MMMM yyyy", u"HH:mm", u"", u""});
    EXPECT_EQ(german.GeneralDate(when), u"Thursday, den 5. November 2026 15:04");
    EXPECT_EQ(german.ParseNumber(u"1,5"), 1.5);
    EXPECT_FALSE(german.ParseNumber(u"1.5"));
    EXPECT_EQ(american.ParseNumber(u" -12.5e1 "), -125);
    for (const auto* text : {u"", u"-", u"e", u"1a", u"1e999"}) EXPECT_FALSE(american.ParseNumber(text));
    EXPECT_EQ(american.ToLower(u"\u00C4\u0416Z\u0130"), u"\u00E4\u0436z\u0130");
}

constexpr std::string_view kRegistry = R"(WINE REGISTRY Version 2
;; All keys relative to \\User\\S-1-5-21-0-0-0-1000

[Software\\Marrowind\\Quillo] 1732238112
#time=1db3c7a1e2b4f00
"Note color"=dword:00000000
"Note folder"="C:\\Notes \"x\" \x20ac\n"
"Random note color"=dword:ffffffff
"Long"=hex:01,02,\
  03,04
"Expanded"=str(2):"%A%"

[software\\other]
@="default"
)";

TEST(QlnRegistry, ReadsTheFileOfAPrefix) {
    const auto values = ReadRegSection(kRegistry, u"Software\\marrowind\\QUILLO");
    ASSERT_EQ(values.size(), 5U);
    EXPECT_EQ(values[3].data, std::string("\1\2\3\4"));
    EXPECT_EQ(values[4].type, 2U);
    EXPECT_TRUE(ReadRegSection(kRegistry, u"Software\\Marrowind").empty());
    RegTextApi api{std::string(kRegistry), std::string()};
    TesselRegistry key(api, u"HKEY_CURRENT_USER\\Software\\Marrowind\\Quillo");
    EXPECT_EQ(key.Value(u"note folder"), u"C:\\Notes \"x\" \u20AC\n");
    EXPECT_EQ(key.ValueLong(u"Random note color"), -1);
    EXPECT_EQ(key.GetValueLong(u"Missing", 7), 7);
    EXPECT_EQ(key.Value(u"Expanded"), u"%A%");
    EXPECT_EQ(TesselRegistry(api, u"HKEY_CURRENT_USER\\Software\\Other").Value(u""), u"default");
}

TEST(QlnRegistry, DamageIsReadSafely) {
    const std::string whole(kRegistry);
    for (std::size_t size = 0; size <= whole.size(); ++size) {
        static_cast<void>(ReadRegSection(whole.substr(0, size), u"Software\\Marrowind\\Quillo"));
    }
}

TEST(QlnRegistry, GivesTheSettingsOfTheProgram) {
    RegTextApi api{std::string(kRegistry), "[Software\\\\Marrowind\\\\Quillo]\n\"Use roaming profile\"=dword:1\n"};
    const StoredSettings stored = ReadSettings(api);
    EXPECT_EQ(stored.settings.noteColor, ColorWord{0}) << "black is a color";
    EXPECT_TRUE(stored.settings.randomNoteColor);
    EXPECT_EQ(stored.settings.noteBorderColor, ColorWord{3723262});
    EXPECT_EQ(stored.settings.shortcuts[0], u"") << "a place on the disk is not guessed";
    EXPECT_TRUE(stored.useRoamingProfile);
    EXPECT_NE(stored.lines.find("Random note color=-1\n"), std::string::npos);
}

TEST(QlnPathList, OnlyItsOwnEntryIsAddedAndRemoved) {
    const std::u16string folder = u"C:\\Program Files\\Quillo";
    EXPECT_EQ(WithPathEntry(u"", folder), folder);
    EXPECT_EQ(WithPathEntry(u"C:\\a;%B%;", folder), u"C:\\a;%B%;" + folder);
    for (const auto* there :
         {u"C:\\a;c:\\program files\\quillo\\;d", u"\"C:\\Program Files\\Quillo\"", u" C:\\Program Files\\Quillo "}) {
        EXPECT_EQ(WithPathEntry(there, folder), there);
    }
    EXPECT_EQ(WithoutPathEntry(u"C:\\a;c:\\program files\\quillo\\;;d", folder), u"C:\\a;;d");
    EXPECT_EQ(WithoutPathEntry(u"C:\\a;\"x;y\";C:\\Program Files\\Quillo2", folder),
              u"C:\\a;\"x;y\";C:\\Program Files\\Quillo2");
    EXPECT_EQ(WithoutPathEntry(folder, folder), u"");
}

TEST(QlnPathList, APathOfFiveThousandCharactersIsRestored) {
    std::u16string path;
    while (path.size() < 5000)
        path += u"C:\\Tools\\folder" + FormatInteger(static_cast<std::int64_t>(path.size())) + u";";
    const std::u16string with = WithPathEntry(path, u"C:\\Quillo");
    EXPECT_EQ(with, path + u"C:\\Quillo");
    EXPECT_EQ(WithoutPathEntry(with, u"C:\\Quillo") + u";", path);
}

TEST(QlnWords, ColorsHaveNames) {
    EXPECT_EQ(SchemeName(8), "black-and-yellow");
    EXPECT_EQ(SchemeNamed("Bright Yellow"), 6U);
    EXPECT_FALSE(SchemeNamed("pink"));
    for (const ColorWord color : {ColorWord{0}, ColorWord{0x00D0FDFF}, ColorWord{0x80000005}, ColorWord{0x01000000}}) {
        EXPECT_EQ(ReadColorText(ColorText(color)), color);
    }
    EXPECT_EQ(ColorText(ColorWord::FromRgb(1, 2, 0xAB)), "#0102ab");
    for (const char* text : {"", "#12345", "#-12345", "#12345g", "word:", "word:99999999999", "red"}) {
        EXPECT_FALSE(ReadColorText(text)) << text;
    }
}

TEST(QlnWords, FirstWordsAreOneHarmlessLine) {
    EXPECT_EQ(FirstWords(u"\r\n \r\n  a\tb \r\nc", 40), u"a b");
    EXPECT_EQ(FirstWords(u" \r\n", 40), u"(empty)");
    EXPECT_EQ(FirstWords(u"\U0001F58B\U0001F58B\U0001F58B", 2), u"\U0001F58B\u2026");
    EXPECT_EQ(FirstWords(u"a\x1b[2J\u202E", 40), u"a\uFFFD[2J\uFFFD");
    EXPECT_EQ(ToUtf8(std::u16string(1, u'\xD800')), "\uFFFD");
}

}  // namespace
}  // namespace quillo::qln
