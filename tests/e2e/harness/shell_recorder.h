#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/win32.h"

namespace quillo::e2e {

/// Replaces the program with which the shell opens a kind of item, and records what it was given. The destructor
/// restores the previous program.
class ShellRecorder {
  public:
    /// `kind` is a scheme ("http") or a file name's ending (".chm"); `folder` receives the record.
    ShellRecorder(std::wstring kind, const std::wstring& folder);
    ShellRecorder(const ShellRecorder&) = delete;
    ShellRecorder& operator=(const ShellRecorder&) = delete;
    ~ShellRecorder() { PutBack(); }

    /// False if the user has chosen a program that cannot be replaced.
    [[nodiscard]] bool IsInCharge() const;
    /// The item that was opened last; "" if there is none.
    [[nodiscard]] std::string Opened() const;
    void DropRecord() const;

  private:
    struct Replaced {
        std::wstring key;
        std::optional<std::wstring> text;  ///< the key's default value; nothing if the key did not exist
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
