#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>

namespace quillo::e2e {

/// A user who has never started the program. What the real user has — settings, the Run value, the folder of notes — is
/// set aside by the constructor and put back by the destructor; what an interrupted run left aside is put back first.
class TestProfile {
  public:
    /// Fails the test, and does nothing, when a program that is not ours is running.
    TestProfile();
    TestProfile(const TestProfile&) = delete;
    TestProfile& operator=(const TestProfile&) = delete;
    ~TestProfile();

    /// False when the constructor failed: nothing may be started then.
    [[nodiscard]] bool IsReady() const { return ready_; }

    /// The folder that holds the folder of notes. It does not exist yet.
    [[nodiscard]] const std::wstring& MakersFolder() const { return makersFolder_; }
    [[nodiscard]] std::wstring NotesFolder() const { return makersFolder_ + L"\\Notes"; }
    /// Puts a file into the folder of notes, which is made where it is missing. The file's full path.
    std::wstring AddNote(const std::wstring& name, const std::string& bytes) const;

    /// Makes the settings of a user who is past the first run and does not want random colors.
    void UseOrdinarySettings() const;
    void SetNumber(const wchar_t* name, std::uint32_t value) const;
    void SetText(const wchar_t* name, const std::wstring& value) const;
    [[nodiscard]] bool HasSettings() const;
    /// Whether there is such a value, of whatever type.
    [[nodiscard]] bool HasValue(const wchar_t* name) const;
    /// Nothing when there is no such value, or it is no number.
    [[nodiscard]] std::optional<std::uint32_t> Number(const wchar_t* name) const;
    /// The same for a text.
    [[nodiscard]] std::optional<std::wstring> Text(const wchar_t* name) const;
    /// Every setting there is, by its name as written, its data as bytes.
    [[nodiscard]] std::map<std::wstring, std::string> AllSettings() const;
    /// What Windows starts with the session; nothing when there is no such value.
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
