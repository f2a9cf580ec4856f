#include "mainmenu/note_preview.h"

#include <string_view>

#include "notes/note_face.h"
#include "platform/gdi_canvas.h"
#include "platform/gdi_scope.h"
#include "platform/wide.h"

namespace quillo {
namespace {

constexpr std::u16string_view kSample = u"New notes will look like this.";
constexpr std::u16string_view kSampleOfMany = u"New notes will look like this, each in a color of its own.";

}  // namespace

bool NotePreview::Create(HWND parent, int id, const wchar_t* name) {
    WindowPlan plan;
    plan.className = L"QuilloNotePreview";
    plan.title = name;
    plan.style = WS_CHILD | WS_VISIBLE;
    plan.parent = parent;
    plan.childId = id;
    return Window::Create(plan);
}

void NotePreview::Show(const NotePreviewLook& look) {
    look_ = look;
    Invalidate();
}

LRESULT NotePreview::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_GETDLGCODE:
            return DLGC_STATIC;
        case WM_GETOBJECT:
            return accessible_.Answer(Handle(), wParam, lParam);
        default:
            return Default(message, wParam, lParam);
    }
}

AccessiblePart NotePreview::Describe(int /*part*/) const {
    AccessiblePart picture;
    picture.role = ROLE_SYSTEM_GRAPHIC;
    return picture;
}

void NotePreview::OnPaint() {
    const PaintScope paint(Handle());
    const Rect client = ClientRect();
    const Size size{client.width, client.height};
    const BufferedPaint buffer(paint.Dc(), ToWin32(client));
    GdiCanvas canvas(buffer.Dc(), look_.scale);
    const ColorWord note = Resolve(look_.note);
    const ColorWord border = Resolve(look_.border);
    PaintNote(canvas, size, look_.scale, NotePaint{note, border}, u"");
    const NoteLayout layout = LayOutNote(size, look_.scale);
    const DragBarPaint bar = DragBarColors(note, border, look_.barStyle, true);
    canvas.Gradient(layout.dragBar, bar.top, bar.bottom);

    const SelectScope font(buffer.Dc(), look_.font);
    SetBkMode(buffer.Dc(), TRANSPARENT);
    SetTextColor(buffer.Dc(), ToColorRef(Resolve(look_.text)));
    RECT area = ToWin32(layout.messageBox);
    InflateRect(&area, -look_.scale.Px(kNoteTextMargin), 0);
    const std::u16string_view sample = look_.manyColors ? kSampleOfMany : kSample;
    DrawTextW(buffer.Dc(), WideData(sample), static_cast<int>(sample.size()), &area, DT_WORDBREAK | DT_NOPREFIX);
}

}  // namespace quillo
