#include "qln_fixture.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <random>

#include "prefix_locale.h"
#include "util/unicode.h"

namespace quillo::qln {
namespace {

namespace fs = std::filesystem;

class FixedClock : public Clock {
  public:
    [[nodiscard]] DaySerial Now() override { return ToDaySerial({2026, 11, 22, 10, 0, 0}); }
};

class FixedRandom : public Random {
  public:
    [[nodiscard]] double Next() override { return 0.3; }
};

class LoggingChannel : public Channel {
  public:
    explicit LoggingChannel(ChannelLog& log) : log_(log) {}
    [[nodiscard]] bool Answers() override { return log_.answers; }
    [[nodiscard]] bool Send(const std::string& commandLine) override {
        if (log_.answers) log_.sent.push_back(commandLine);
        return log_.answers;
    }
    [[nodiscard]] bool Start() override {
        ++log_.started;
        return log_.starts;
    }
    [[nodiscard]] std::optional<std::string> PathForProgram(const std::string& path) override { return path; }

  private:
    ChannelLog& log_;
};

std::string MakeRoot() {
    const fs::path root = fs::temp_directory_path() / ("qln-test-" + std::to_string(std::random_device()()));
    fs::create_directories(root / "notes");
    fs::create_directories(root / "closed");
    return fs::canonical(root).string();
}

}  // namespace

FakeHost::FakeHost(std::string root) : root_(std::move(root)) {}

Clock& FakeHost::Time() {
    static FixedClock clock;
    return clock;
}

Random& FakeHost::Chance() {
    static FixedRandom random;
    return random;
}

std::string FakeHost::NewGuid() {
    char guid[64];
    std::snprintf(guid, sizeof guid, "{%08d-0000-4000-8000-000000000000}", ++guids_);
    return guid;
}

std::optional<Surroundings> FakeHost::Find(const FolderChoice& choice, std::string& /*error*/) {
    Surroundings place;
    place.notesFolder = choice.folder.empty() ? JoinPaths(root_, "notes") : choice.folder;
    place.closedFolder = JoinPaths(root_, "closed");
    place.settings = settings;
    place.settingsText = "Note opacity=192\n";
    place.locale = std::make_unique<PrefixLocale>(*CodePage::Find(1252), Regional{});
    place.channel = std::make_unique<LoggingChannel>(channel);
    return place;
}

bool FakeHost::EditPath(bool add, bool machine, const std::string& folder) {
    pathEdits.push_back(std::string(add ? "add " : "remove ") + (machine ? "machine " : "user ") + folder);
    return true;
}

QlnTest::QlnTest() : root_(MakeRoot()), host(root_) {
    host.settings.randomNoteColor = false;
}

QlnTest::~QlnTest() {
    std::error_code error;
    fs::remove_all(root_, error);
}

std::string QlnTest::Notes(std::string_view name) const {
    const std::string folder = JoinPaths(root_, "notes");
    return name.empty() ? folder : JoinPaths(folder, name);
}

std::string QlnTest::Closed(std::string_view name) const {
    const std::string folder = JoinPaths(root_, "closed");
    return name.empty() ? folder : JoinPaths(folder, name);
}

void QlnTest::Put(const std::string& path, std::string_view bytes) {
    ASSERT_TRUE(OverwriteFile(path, bytes)) << path;
    ASSERT_TRUE(SetModified(path, next_));
    next_ += 60'000'000'000;
}

std::string QlnTest::Copy(std::string_view text, std::string_view reminder, int state) {
    return std::string(text) + "\r\n<quillo><position>1500,3000,3000,2400</position><appearance>False,True,13696511," +
           "3723262,0," + std::to_string(state) + "</appearance><reminder>" + std::string(reminder) +
           "</reminder><nodelete></nodelete></quillo>";
}

int QlnTest::Qln(const std::vector<std::string>& arguments) {
    host.console.out.clear();
    host.console.error.clear();
    return RunCommandLine(arguments, host);
}

std::vector<std::string> QlnTest::NamesIn(const std::string& folder) {
    std::vector<std::string> names;
    for (const FolderEntry& entry : ListFiles(folder).value_or(std::vector<FolderEntry>())) names.push_back(entry.name);
    std::sort(names.begin(), names.end());
    return names;
}

}  // namespace quillo::qln
