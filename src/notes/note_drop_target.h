#pragma once

#include "platform/win32.h"

// After windows.h.
#include <ole2.h>

#include <functional>
#include <string>
#include <string_view>

#include "notes/note_drop.h"

namespace quillo {

class LocaleText;
class Shell;

/// OLE for the user-interface thread. It starts at the first use and ends with the program.
class OleSession {
  public:
    OleSession() = default;
    OleSession(const OleSession&) = delete;
    OleSession& operator=(const OleSession&) = delete;
    ~OleSession();

    /// False when the system refuses; what needs OLE is then done without.
    [[nodiscard]] bool Start();

  private:
    bool started_ = false;
};

/// The clipboard format in which web browsers offer a link.
[[nodiscard]] CLIPFORMAT LinkFormat();

/// Takes links, text and lists of files dropped onto a text box. OLE counts its references; the note holds one.
class NoteDropTarget : public IDropTarget {
  public:
    /// `insert` gets the text that stands for what was dropped. `textBox` is borrowed.
    NoteDropTarget(HWND textBox, LocaleText& locale, Shell& shell, std::function<void(std::u16string_view)> insert);
    NoteDropTarget(const NoteDropTarget&) = delete;
    NoteDropTarget& operator=(const NoteDropTarget&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE DragEnter(IDataObject* data, DWORD keys, POINTL at, DWORD* effect) override;
    HRESULT STDMETHODCALLTYPE DragOver(DWORD keys, POINTL at, DWORD* effect) override;
    HRESULT STDMETHODCALLTYPE DragLeave() override;
    HRESULT STDMETHODCALLTYPE Drop(IDataObject* data, DWORD keys, POINTL at, DWORD* effect) override;

    /// The note is going: nothing is inserted any more.
    void Disconnect() { insert_ = nullptr; }

  private:
    virtual ~NoteDropTarget() = default;

    [[nodiscard]] DropFormat FormatOf(IDataObject* data) const;
    [[nodiscard]] std::u16string TextOf(IDataObject* data, DropFormat format) const;

    HWND textBox_;
    LocaleText& locale_;
    Shell& shell_;
    std::function<void(std::u16string_view)> insert_;
    bool welcome_ = false;
    ULONG references_ = 1;
};

}  // namespace quillo
