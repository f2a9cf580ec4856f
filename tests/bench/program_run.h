#pragma once

#include <string>
#include <vector>

#include "platform/unique_handle.h"
#include "platform/win32.h"

namespace quillo::bench {

/// Where the samples are on the screen: side by side, or each a little to the right of the one before and below it, as
/// the bare program shows its windows.
enum class SamplePlaces { Grid, Diagonal };

/// The bytes of a note file with a text of some lines.
[[nodiscard]] std::string SampleNote(int index, SamplePlaces places);

/// The folder from which the program takes its notes, filled with samples; the destructor deletes every note in it.
class NotesFolder {
  public:
    explicit NotesFolder(int notes, SamplePlaces places = SamplePlaces::Grid);
    NotesFolder(const NotesFolder&) = delete;
    NotesFolder& operator=(const NotesFolder&) = delete;
    ~NotesFolder();

    /// False if the folder has notes of the user, or cannot be written.
    [[nodiscard]] bool IsReady() const { return ready_; }
    [[nodiscard]] const std::wstring& Path() const { return path_; }
    /// The full paths of the samples.
    [[nodiscard]] const std::vector<std::wstring>& Files() const { return files_; }
    /// Adds a sample with a text of about that many characters, in lines of 64; false on failure.
    [[nodiscard]] bool AddLarge(std::size_t characters);

  private:
    std::wstring path_;
    std::vector<std::wstring> files_;
    bool ready_ = false;
};

/// The processor time of a process since its start, in user mode and in the system. `name` is the file name of the
/// program.
[[nodiscard]] double ProcessorMillisecondsOf(HANDLE process, const std::string& name);

/// Whether a window and the text box in it are visible and completely painted.
[[nodiscard]] bool IsPainted(HWND window);

/// The top-level windows of a class, from front to back.
[[nodiscard]] std::vector<HWND> WindowsOf(const wchar_t* windowClass);

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
    [[nodiscard]] std::vector<HWND> Windows() const { return WindowsOf(windowClass_); }
    /// Time in user mode and in the system since the start.
    [[nodiscard]] double ProcessorMilliseconds() const;
    /// How often its threads have waited for something that then came; 0 where the system does not count that.
    [[nodiscard]] long long TimesAwake() const;
    /// The text boxes of all notes.
    [[nodiscard]] std::vector<HWND> TextBoxes() const;
    /// Makes the program save every changed note, and returns when that is done; false on failure.
    [[nodiscard]] bool SaveAll() const;

  private:
    KernelHandle process_;
    std::string name_;
    mutable std::wstring linuxFolder_;  ///< "" until it is looked up; finding it takes long
    const wchar_t* windowClass_;
    bool ready_ = false;
};

/// All bytes of a file; "" if it cannot be read.
[[nodiscard]] std::string ReadAll(const std::wstring& path);

/// The same for a file whose length is unknown until it is read.
[[nodiscard]] std::string ReadAllOfDevice(const std::wstring& path);

}  // namespace quillo::bench
