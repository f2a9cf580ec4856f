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

/// Accepts links, text and lists of files dropped onto a text box. The note holds one reference.
class NoteDropTarget : public DropTarget {
  public:
    /// `insert` gets the dropped text and returns whether it inserted it. `textBox` is borrowed.
    NoteDropTarget(HWND textBox, LocaleText& locale, Shell& shell, std::function<bool(std::u16string_view)> insert);

  private:
    ~NoteDropTarget() override = default;

    [[nodiscard]] DWORD OnEnter(IDataObject* data, Point at, DWORD offered) override;
    [[nodiscard]] DWORD OnOver(Point at, DWORD offered) override;
    void OnLeave() override { welcome_ = false; }
    [[nodiscard]] DWORD OnDrop(IDataObject* data, Point at, DWORD offered) override;

    /// Messages may be pumped meanwhile, in this function and the next.
    [[nodiscard]] DropFormat FormatOf(IDataObject* data) const;
    [[nodiscard]] std::u16string TextOf(IDataObject* data, DropFormat format) const;

    LocaleText& locale_;
    Shell& shell_;
    std::function<bool(std::u16string_view)> insert_;
    bool welcome_ = false;
};

}  // namespace quillo
