#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/win32.h"

namespace quillo::e2e {

/// Takes the place of the program that the shell opens a kind of thing with, and remembers what it was given. What was
/// there before comes back with the end of the object.
class ShellRecorder {
  public:
    /// `kind` is a scheme ("http") or a file name's ending (".chm"), and `folder` gets the file of what was opened.
    ShellRecorder(std::wstring kind, const std::wstring& folder);
    ShellRecorder(const ShellRecorder&) = delete;
    ShellRecorder& operator=(const ShellRecorder&) = delete;
    ~ShellRecorder() { PutBack(); }

    /// False where the user has chosen a program that no other can replace.
    [[nodiscard]] bool IsInCharge() const;
    /// What was opened last; "" when nothing was.
    [[nodiscard]] std::string Opened() const;
    void DropRecord() const;

  private:
    struct Replaced {
        std::wstring key;
        std::optional<std::wstring> text;  ///< the key's default value; nothing when there was no such key
    };

    void Register(HKEY root);
    void Replace(const std::wstring& key, const std::wstring& text);
    void PutBack();
    [[nodiscard]] std::wstring ChosenClass() const;

    std::wstring kind_;
    std::wstring command_;
    std::wstring file_;
    HKEY root_ = nullptr;  ///< the user's classes or the machine's
    std::vector<Replaced> replaced_;
};

}  // namespace quillo::e2e
