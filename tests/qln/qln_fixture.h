#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "command_line.h"
#include "host.h"

namespace quillo::qln {

/// A console that records its output.
class RecordingConsole : public Console {
  public:
    void Out(std::string_view text) override { out += text; }
    void Error(std::string_view text) override { error += text; }
    [[nodiscard]] bool IsTerminal() const override { return terminal; }
    [[nodiscard]] std::string ReadInput(std::size_t most) override { return input.substr(0, most + 1); }

    std::string out;
    std::string error;
    std::string input;
    bool terminal = false;
};

/// The commands that a running program received.
struct ChannelLog {
    bool answers = false;
    bool starts = false;
    int started = 0;
    std::vector<std::string> sent;
};

/// A user whose notes are in one folder and whose closed notes are in another. It is 10:00 on 22 November 2026.
class FakeHost : public Host {
  public:
    explicit FakeHost(std::string root);

    [[nodiscard]] Console& Terminal() override { return console; }
    [[nodiscard]] Clock& Time() override;
    [[nodiscard]] Random& Chance() override;
    /// {00000001-0000-4000-8000-000000000000} and so on.
    [[nodiscard]] std::string NewGuid() override;
    [[nodiscard]] std::optional<Surroundings> Find(const FolderChoice& choice, std::string& error) override;
    [[nodiscard]] bool EditPath(bool add, bool machine, const std::string& folder) override;

    RecordingConsole console;
    ChannelLog channel;
    Settings settings;
    std::vector<std::string> pathEdits;

  private:
    std::string root_;
    int guids_ = 0;
};

/// A temporary folder with the folders "notes" and "closed", deleted after the test.
class QlnTest : public ::testing::Test {
  protected:
    QlnTest();
    ~QlnTest() override;

    [[nodiscard]] std::string Root() const { return root_; }
    [[nodiscard]] std::string Notes(std::string_view name = {}) const;
    [[nodiscard]] std::string Closed(std::string_view name = {}) const;

    /// Writes a file; each one is a minute newer than the previous one.
    void Put(const std::string& path, std::string_view bytes);
    /// A storage copy of a yellow note with the text.
    [[nodiscard]] static std::string Copy(std::string_view text, std::string_view reminder = "", int state = 0);
    /// Runs the program; clears the output of the previous run first.
    int Qln(const std::vector<std::string>& arguments);
    [[nodiscard]] const std::string& Out() const { return host.console.out; }
    [[nodiscard]] const std::string& Error() const { return host.console.error; }
    /// The names in a folder, sorted.
    [[nodiscard]] static std::vector<std::string> NamesIn(const std::string& folder);

  private:
    std::string root_;
    FileTime next_ = 1'790'000'000'000'000'000;

  protected:
    FakeHost host;
};

inline constexpr const char* kFirstName = "{3F2504E0-4F89-41D3-9A0C-0305E82C3301}.qln";
inline constexpr const char* kSecondName = "{A0000002-4F89-41D3-9A0C-0305E82C3302}.qln";
inline constexpr const char* kThirdName = "{B0000003-4F89-41D3-9A0C-0305E82C3303}.qln";

}  // namespace quillo::qln
