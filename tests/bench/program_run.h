#pragma once

#include <string>
#include <vector>

#include "platform/unique_handle.h"
#include "platform/win32.h"

namespace quillo::bench {

/// The folder that the program takes its notes from, filled with samples; they are gone with the object.
class NotesFolder {
  public:
    explicit NotesFolder(int notes);
    NotesFolder(const NotesFolder&) = delete;
    NotesFolder& operator=(const NotesFolder&) = delete;
    ~NotesFolder();

    /// False when the folder holds notes of the user's, or cannot be written.
    [[nodiscard]] bool IsReady() const { return ready_; }
    [[nodiscard]] const std::wstring& Path() const { return path_; }
    /// The full paths of the samples.
    [[nodiscard]] const std::vector<std::wstring>& Files() const { return files_; }

  private:
    std::wstring path_;
    std::vector<std::wstring> files_;
    bool ready_ = false;
};

/// One start of the program under measurement, ended with the object.
class ProgramRun {
  public:
    /// Waits until so many windows of that class stand and the program has nothing left to do. `arguments` follow the
    /// program's name in the command line, with the blank before them.
    ProgramRun(const std::string& exe, int notes, const std::wstring& arguments = L"",
               const wchar_t* windowClass = L"QuilloNote");
    ProgramRun(const ProgramRun&) = delete;
    ProgramRun& operator=(const ProgramRun&) = delete;
    ~ProgramRun();

    [[nodiscard]] bool IsReady() const { return ready_; }
    [[nodiscard]] HANDLE Process() const { return process_.Get(); }
    /// Spent in user mode and in the system, since the start.
    [[nodiscard]] double ProcessorMilliseconds() const;
    /// The text boxes of all notes.
    [[nodiscard]] std::vector<HWND> TextBoxes() const;
    /// Has every changed note written, and comes back when that is done; false on failure.
    [[nodiscard]] bool SaveAll() const;

  private:
    KernelHandle process_;
    const wchar_t* windowClass_;
    bool ready_ = false;
};

/// All of a file's bytes; "" when it cannot be read.
[[nodiscard]] std::string ReadAll(const std::wstring& path);

/// The same of a file that has no length until it is read.
[[nodiscard]] std::string ReadAllOfDevice(const std::wstring& path);

}  // namespace quillo::bench
