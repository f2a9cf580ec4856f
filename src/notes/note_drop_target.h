#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "notes/note_drop.h"
#include "platform/drop_target.h"

namespace quillo {

class LocaleText;
class Shell;

/// The clipboard format in which web browsers offer a link.
[[nodiscard]] CLIPFORMAT LinkFormat();

/// Takes links, text and lists of files dropped onto a text box. The note holds one reference.
class NoteDropTarget : public DropTarget {
  public:
    /// `insert` gets the text of what was dropped and says whether it took it. `textBox` is borrowed.
    NoteDropTarget(HWND textBox, LocaleText& locale, Shell& shell, std::function<bool(std::u16string_view)> insert);

    HRESULT STDMETHODCALLTYPE DragEnter(IDataObject* data, DWORD keys, POINTL at, DWORD* effect) override;
    HRESULT STDMETHODCALLTYPE DragOver(DWORD keys, POINTL at, DWORD* effect) override;
    HRESULT STDMETHODCALLTYPE DragLeave() override;
    HRESULT STDMETHODCALLTYPE Drop(IDataObject* data, DWORD keys, POINTL at, DWORD* effect) override;

    /// The note is going: nothing is inserted any more.
    void Disconnect() { insert_ = nullptr; }

  private:
    ~NoteDropTarget() override = default;

    [[nodiscard]] DropFormat FormatOf(IDataObject* data) const;
    [[nodiscard]] std::u16string TextOf(IDataObject* data, DropFormat format) const;

    HWND textBox_;
    LocaleText& locale_;
    Shell& shell_;
    std::function<bool(std::u16string_view)> insert_;
    bool welcome_ = false;
};

}  // namespace quillo
