#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>

namespace quillo::e2e {

/// A user who has never started the program. The constructor sets the real user's data aside (settings, the Run value,
/// the folder of notes) and the destructor restores it; data that an interrupted run left aside is restored first.
class TestProfile {
  public:
    /// Fails the test, and does nothing, if another Quillo is running.
    TestProfile();
    TestProfile(const TestProfile&) = delete;
    TestProfile& operator=(const TestProfile&) = delete;
    ~TestProfile();

    /// False if the constructor failed: the program must not be started then.
    [[nodiscard]] bool IsReady() const { return ready_; }

    /// The folder that holds the folder of notes. It does not exist yet.
    [[nodiscard]] const std::wstring& MakersFolder() const { return makersFolder_; }
    [[nodiscard]] std::wstring NotesFolder() const { return makersFolder_ + L"\\Notes"; }
    /// Writes a file into the folder of notes, which is created if it is missing. Returns the file's full path.
    std::wstring AddNote(const std::wstring& name, const std::string& bytes) const;

    /// Creates the settings of a user who has finished the first run and does not want random colors.
    void UseOrdinarySettings() const;
    void SetNumber(const wchar_t* name, std::uint32_t value) const;
    void SetText(const wchar_t* name, const std::wstring& value) const;
    [[nodiscard]] bool HasSettings() const;
    /// Whether there is such a value, of any type.
    [[nodiscard]] bool HasValue(const wchar_t* name) const;
    /// Nothing if there is no such value, or it is not a number.
    [[nodiscard]] std::optional<std::uint32_t> Number(const wchar_t* name) const;
    /// The same for a text.
    [[nodiscard]] std::optional<std::wstring> Text(const wchar_t* name) const;
    /// Every setting there is, by its name as written, its data as bytes.
    [[nodiscard]] std::map<std::wstring, std::string> AllSettings() const;
    /// The program that Windows starts with the session; nothing if there is no such value.
    [[nodiscard]] std::optional<std::wstring> RunValue() const;
    void SetRunValue(const std::wstring& value) const;

  private:
    void SetAside() const;
    void PutBack() const;

    std::wstring makersFolder_;
    std::wstring asideFolder_;
    bool ready_ = false;
};

}  // namespace quillo::e2e
