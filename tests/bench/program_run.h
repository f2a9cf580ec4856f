#pragma once

#include <string>
#include <vector>

#include "platform/unique_handle.h"
#include "platform/win32.h"

namespace quillo::bench {

/// The folder from which the program takes its notes, filled with samples; the destructor deletes them.
class NotesFolder {
  public:
    explicit NotesFolder(int notes);
    NotesFolder(const NotesFolder&) = delete;
    NotesFolder& operator=(const NotesFolder&) = delete;
    ~NotesFolder();

    /// False if the folder has notes of the user, or cannot be written.
    [[nodiscard]] bool IsReady() const { return ready_; }
    [[nodiscard]] const std::wstring& Path() const { return path_; }
    /// The full paths of the samples.
    [[nodiscard]] const std::vector<std::wstring>& Files() const { return files_; }

  private:
    std::wstring path_;
    std::vector<std::wstring> files_;
    bool ready_ = false;
};

/// The processor time of a process since its start, in user mode and in the system. `name` is the file name of the
/// program.
[[nodiscard]] double ProcessorMillisecondsOf(HANDLE process, const std::string& name);

/// The folder on Wine's drive Z: in which Linux describes the youngest process of that program in this Wine prefix; ""
/// on Windows.
[[nodiscard]] std::wstring LinuxFolderOf(const std::string& name);

/// One start of the program under measurement, ended with the object.
class ProgramRun {
  public:
    /// Waits until that many windows of the class exist and the program is idle. `arguments` is appended to the
    /// program's name in the command line, with a leading blank.
    ProgramRun(const std::string& exe, int notes, const std::wstring& arguments = L"",
               const wchar_t* windowClass = L"QuilloNote");
    ProgramRun(const ProgramRun&) = delete;
    ProgramRun& operator=(const ProgramRun&) = delete;
    ~ProgramRun();

    [[nodiscard]] bool IsReady() const { return ready_; }
    [[nodiscard]] HANDLE Process() const { return process_.Get(); }
    /// Time in user mode and in the system since the start.
    [[nodiscard]] double ProcessorMilliseconds() const;
    /// The text boxes of all notes.
    [[nodiscard]] std::vector<HWND> TextBoxes() const;
    /// Makes the program save every changed note, and returns when that is done; false on failure.
    [[nodiscard]] bool SaveAll() const;

  private:
    KernelHandle process_;
    std::string name_;
    const wchar_t* windowClass_;
    bool ready_ = false;
};

/// All bytes of a file; "" if it cannot be read.
[[nodiscard]] std::string ReadAll(const std::wstring& path);

/// The same for a file whose length is unknown until it is read.
[[nodiscard]] std::string ReadAllOfDevice(const std::wstring& path);

}  // namespace quillo::bench
