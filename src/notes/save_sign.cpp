#include "notes/save_sign.h"

#include <algorithm>

#include "platform/gdi_canvas.h"
#include "platform/gdi_scope.h"
#include "platform/wide.h"
#include "platform/window_effects.h"

namespace quillo {

bool SaveSign::Show(HWND note, int id, std::u16string_view reason, const Rect& place) {
    if (reason == reason_) return true;
    const bool appears = reason_.empty();
    reason_ = reason;
    if (reason_.empty()) {
        if (Handle() != nullptr) ShowWindow(Handle(), SW_HIDE);
        return true;
    }
    if (Handle() == nullptr && !Make(note, id, place)) {
        reason_.clear();  // so that the next call tries again
        return false;
    }
    SetWindowTextW(Handle(), Wide(reason_));
    if (appears) {
        ShowWindow(Handle(), SW_SHOWNOACTIVATE);
        NotifyWinEvent(EVENT_SYSTEM_ALERT, Handle(), OBJID_CLIENT, CHILDID_SELF);
    }
    return true;
}

bool SaveSign::Make(HWND note, int id, const Rect& place) {
    WindowPlan plan;
    plan.className = L"QuilloSaveSign";
    plan.style = WS_CHILD;
    plan.place = place;
    plan.parent = note;
    plan.childId = id;
    return Create(plan);
}

void SaveSign::SetTint(const ButtonTint& tint, const Scale& scale) {
    tint_ = tint;
    tint_.faint = false;  // it must be visible on an inactive note too
    scale_ = scale;
    Invalidate();
}

LRESULT SaveSign::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (onMouse && message >= WM_MOUSEFIRST && message <= WM_MOUSELAST) onMouse(message, lParam);
    switch (message) {
        case WM_LBUTTONDOWN:
            return OnPressed(PointFromLParam(lParam)), 0;
        case WM_GETOBJECT:
            return accessible_.Answer(Handle(), wParam, lParam);
        default:
            return Default(message, wParam, lParam);
    }
}

void SaveSign::OnPressed(Point at) const {
    StartWindowDrag(GetParent(Handle()), Handle(), at);
}

void SaveSign::OnPaint() {
    const PaintScope paint(Handle());
    const Rect face = ClientRect();
    const BufferedPaint buffer(paint.Dc(), ToWin32(face));
    GdiCanvas(buffer.Dc(), scale_).Fill(face, Mix(tint_.top, tint_.bottom, 50));
    const HBITMAP strip = images_.Strip(tint_, scale_);
    if (strip == nullptr) return;
    const int frame = scale_.Px(kButtonFrame);
    // On the narrowest notes both sides of the frame lose the same part of its empty rim.
    const int cut = std::max(0, frame - face.width) / 2;
    const MemoryDc source(CreateCompatibleDC(buffer.Dc()));
    const SelectScope selected(source.Get(), strip);
    BitBlt(buffer.Dc(), 0, 0, std::min(frame, face.width), std::min(frame, face.height), source.Get(), cut,
           static_cast<int>(ButtonPicture::Warning) * frame, SRCCOPY);
}

AccessiblePart SaveSign::Describe(int /*part*/) const {
    AccessiblePart sign;
    sign.role = ROLE_SYSTEM_ALERT;
    sign.state = STATE_SYSTEM_READONLY;
    return sign;
}

}  // namespace quillo
