#include <cstdlib>
#include <filesystem>

#include "host_posix.h"
#include "qln_fixture.h"
#include "wine_prefix.h"

namespace quillo::qln {
namespace {

namespace fs = std::filesystem;

constexpr const char* kUserRegistry = R"(WINE REGISTRY Version 2
[Software\\Marrowind\\Quillo]
"Note folder"="C:\\USERS\\me\\Closed"
"Timestamp new notes"=dword:ffffffff

[Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders]
"Local AppData"="C:\\users\\me\\AppData\\Local"
"AppData"="C:\\users\\me\\AppData\\Roaming"
)";
constexpr const char* kSystemRegistry = R"(WINE REGISTRY Version 2
[System\\ControlSet001\\Control\\Nls\\CodePage]
"ACP"="1251"
)";

/// A Wine prefix with one note, with only the files that the program reads.
class QlnPrefix : public QlnTest {
  protected:
    void SetUp() override {
        prefix_ = Root() + "/wine";
        const fs::path user = prefix_ + "/drive_c/users/me";
        folder_ = (user / "AppData/Local/Marrowind/Notes").string();
        fs::create_directories(folder_);
        fs::create_directories(user / "closed");
        fs::create_directories(prefix_ + "/dosdevices");
        fs::create_symlink("../drive_c", prefix_ + "/dosdevices/c:");
        fs::create_symlink("/", prefix_ + "/dosdevices/z:");
        Put(prefix_ + "/user.reg", kUserRegistry);
        Put(prefix_ + "/system.reg", kSystemRegistry);
        Put(folder_ + "/" + kFirstName, Copy("\xCC\xEE\xEB\xEE\xEA\xEE"));
        for (const char* name : {"WINEPREFIX", "QUILLO_NOTES", "XDG_DATA_HOME"}) unsetenv(name);
    }

    int RealQln(const std::vector<std::string>& arguments) {
        console_.out.clear();
        console_.error.clear();
        PosixHost real(console_);
        return RunCommandLine(arguments, real);
    }

    std::string prefix_;
    std::string folder_;
    RecordingConsole console_;
};

TEST_F(QlnPrefix, FoldersCodePageAndSettingsComeFromThePrefix) {
    setenv("WINEPREFIX", prefix_.c_str(), 1);
    std::string error;
    const auto place = PosixHost(console_).Find({}, error);
    ASSERT_TRUE(place) << error;
    EXPECT_EQ(place->notesFolder, folder_);
    EXPECT_EQ(place->closedFolder, prefix_ + "/drive_c/users/me/closed") << "found in any letter case";
    EXPECT_TRUE(place->settings.timestampNewNotes);
    EXPECT_EQ(RealQln({"show", "1"}), kDone);
    EXPECT_EQ(console_.out, "\u041C\u043E\u043B\u043E\u043A\u043E\n");
    EXPECT_EQ(RealQln({"show", "1", "--codepage", "1252"}), kDone);
    EXPECT_EQ(console_.out, "\u00CC\u00EE\u00EB\u00EE\u00EA\u00EE\n");
    EXPECT_EQ(RealQln({"show", "1", "--codepage", "932"}), kFailed);
}

TEST_F(QlnPrefix, AFolderGivenExplicitlyHasPriority) {
    setenv("WINEPREFIX", "/nowhere", 1);
    EXPECT_EQ(RealQln({"list"}), kFailed);
    setenv("QUILLO_NOTES", folder_.c_str(), 1);
    EXPECT_EQ(RealQln({"show", "1"}), kDone);
    EXPECT_EQ(console_.out, "\u041C\u043E\u043B\u043E\u043A\u043E\n") << "the prefix around the folder is found";
    Put(Notes(kFirstName), Copy("in a copy"));
    EXPECT_EQ(RealQln({"show", "1", "--folder", Notes()}), kDone);
    EXPECT_EQ(console_.out, "in a copy\n");
    unsetenv("QUILLO_NOTES");
    unsetenv("WINEPREFIX");
    setenv("XDG_DATA_HOME", Root().c_str(), 1);
    fs::create_directories(Root() + "/quillo");
    fs::rename(prefix_, Root() + "/quillo/wine");
    EXPECT_EQ(RealQln({"list"}), kDone);
    unsetenv("XDG_DATA_HOME");
}

TEST_F(QlnPrefix, TheNotesFolderIsCreatedAsTheProgramCreatesIt) {
    setenv("WINEPREFIX", prefix_.c_str(), 1);
    fs::remove_all(prefix_ + "/drive_c/users/me/AppData/Local/Marrowind");
    EXPECT_EQ(RealQln({"new", "first"}), kDone) << console_.error;
    EXPECT_EQ(NamesIn(folder_).size(), 1U);
    EXPECT_EQ(RealQln({"list", "--folder", Root() + "/nowhere"}), kFailed);
    EXPECT_FALSE(IsFolder(Root() + "/nowhere"));
}

TEST_F(QlnPrefix, PathsAreTheProgramsOwn) {
    const WinePrefix prefix(prefix_);
    EXPECT_EQ(prefix.ToWindows(folder_ + "/a.qln"), "C:\\users\\me\\AppData\\Local\\Marrowind\\Notes\\a.qln");
    EXPECT_EQ(prefix.ToWindows("/etc/hosts"), "Z:\\etc\\hosts");
    EXPECT_EQ(prefix.ToHost(u"c:\\USERS\\ME\\appdata"), prefix_ + "/drive_c/users/me/AppData");
    EXPECT_EQ(prefix.ToHost(u"q:\\x"), "");
    EXPECT_EQ(prefix.ToHost(u""), "");
}

}  // namespace
}  // namespace quillo::qln
