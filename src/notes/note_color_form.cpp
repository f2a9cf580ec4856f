#include "notes/note_color_form.h"

#include <algorithm>

#include "platform/control_column.h"
#include "platform/gdi_scope.h"
#include "platform/monitors.h"
#include "platform/text_tools.h"
#include "platform/wide.h"
#include "platform/window_effects.h"
#include "util/placement.h"

namespace quillo {
namespace {

/// The strip of colors is below the caption of its option. Pixels at 96 dpi.
constexpr int kStripIndent = 17;

}  // namespace

NoteColorForm::NoteColorForm(MessageLoop& loop) : DialogWindow(loop) {
    selector_.onColorPicked = [this](const ColorScheme& colors) { dialog_.OnColorPicked(colors); };
}

bool NoteColorForm::ShowFor(HWND noteWindow, NoteColorTarget& note, bool own, const ColorScheme& colors) {
    if (Handle() != nullptr) {
        SetWindowLongPtrW(Handle(), GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(noteWindow));  // sets its owner
    } else if (!CreateHidden(DialogPlan{L"QuilloNoteColor", kNoteColorCaption, noteWindow})) {
        return false;
    }
    dialog_.Load(note, own, colors);
    PlaceBesideNote(noteWindow);
    ShowWindow(Handle(), SW_SHOW);
    SetTopmost(Handle(), (GetWindowLongPtrW(noteWindow, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0);
    SetForegroundWindow(Handle());
    SetFocus(Item(own ? kCustomOption : kDefaultOption));  // which may report a click of its own
    dialog_.Shown();
    return true;
}

void NoteColorForm::CreateControls() {
    CreateControl(Handle(), kHeadingLabel, kLabel, kNoteColorHeading);
    CreateControl(Handle(), kInstructionLabel, kLabel, kNoteColorInstruction);
    CreateControl(Handle(), kDefaultOption, kFirstOption, kDefaultColorsCaption);
    CreateControl(Handle(), kCustomOption, kOption, kOwnColorsCaption);
    const std::u16string name(kColorSelectorName);
    selector_.Create(Handle(), kColorSelector, Wide(name));
    CreateControl(Handle(), kRuleBar, kRule, u"");
    CreateControl(Handle(), IDOK, kDefaultButton, u"OK");
}

HFONT NoteColorForm::FontOf(int id) const {
    return id == kHeadingLabel ? Fonts().heading.Get() : Fonts().body.Get();
}

void NoteColorForm::LayOut(HDC dc) {
    const int margin = Px(kDialogMargin);
    const int indent = Px(kStripIndent);
    const Size strip = selector_.StripSize();
    HFONT body = Fonts().body.Get();
    const int width = std::max({MeasureText(dc, Fonts().heading.Get(), kNoteColorHeading).width,
                                MeasureText(dc, body, kNoteColorInstruction).width,
                                CheckWidth(dc, body, kDefaultColorsCaption, DialogScale()),
                                CheckWidth(dc, body, kOwnColorsCaption, DialogScale()), indent + strip.width});
    ControlColumn column(dc, margin, margin, width);
    column.PutText(Item(kHeadingLabel), Fonts().heading.Get(), kNoteColorHeading, 0, Px(kDialogSmallGap));
    column.PutText(Item(kInstructionLabel), body, kNoteColorInstruction, 0, margin);
    column.Put(Item(kDefaultOption), 0, Px(kDialogCheckHeight), Px(kDialogSmallGap));
    column.Put(Item(kCustomOption), 0, Px(kDialogCheckHeight), Px(kDialogGap));
    column.Put(Item(kColorSelector), indent, strip.height, margin);
    LayOutFoot(dc, width, column.Bottom(), kRuleBar, {IDOK});
    FitClient(FootBottom());
}

void NoteColorForm::OnCommand(int id, int notification) {
    if (notification != BN_CLICKED) return;
    if (id == kCustomOption || id == kDefaultOption) return dialog_.OnOptionClicked(id == kCustomOption);
    if (id == IDOK) dialog_.OnOk();
}

void NoteColorForm::SelectOption(bool own) {
    CheckRadioButton(Handle(), kDefaultOption, kCustomOption, own ? kCustomOption : kDefaultOption);
}

void NoteColorForm::PlaceBesideNote(HWND noteWindow) const {
    // The note stays visible: it shows the chosen colors.
    RECT note{};
    GetWindowRect(noteWindow, &note);
    const Rect window = WindowRect();
    const Rect place =
        PlaceBeside(FromWin32(note), Size{window.width, window.height}, WorkAreaOf(noteWindow), Px(kDialogGap));
    SetWindowPos(Handle(), nullptr, place.left, place.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace quillo
