#include "controls/button_state.h"

namespace quillo {

bool ButtonState::Inside(Point at) const {
    return Rect{0, 0, size_.width, size_.height}.Contains(at);
}

ButtonResponse ButtonState::MouseMove(Point at, MouseButton held) {
    ButtonResponse response;
    const bool inside = Inside(at);
    ButtonFace face = face_;
    switch (held) {
        case MouseButton::None:
            face = inside ? ButtonFace::Hot : ButtonFace::Normal;
            break;
        case MouseButton::Left:
            if (!pressed_) return response;
            face = inside ? ButtonFace::Pressed : ButtonFace::Hot;
            break;
        case MouseButton::Other:
            return response;
    }
    if (face == face_) return response;

    face_ = face;
    response.repaint = true;
    if (face == ButtonFace::Hot && held == MouseButton::None) {
        captured_ = true;  // so that leaving is noticed
        response.capture = ButtonResponse::Capture::Take;
    } else if (face == ButtonFace::Normal) {
        captured_ = false;
        response.capture = ButtonResponse::Capture::Release;
    }
    return response;
}

ButtonResponse ButtonState::MouseDown(Point at, MouseButton pressed) {
    pressed_ = true;
    ButtonResponse response = MouseMove(at, pressed);
    if (pressed != MouseButton::Left || !menuMode_) {
        if (face_ != ButtonFace::Normal && !captured_) {
            captured_ = true;  // a press is followed to its release, even if the pointer did not hover before
            response.capture = ButtonResponse::Capture::Take;
        }
        return response;
    }

    // The owner opens its menu at once; the mouse belongs to the menu from here on.
    face_ = ButtonFace::Normal;
    captured_ = false;
    response.repaint = true;
    response.capture = ButtonResponse::Capture::Release;
    response.event = ButtonResponse::Event::MouseDown;
    return response;
}

ButtonResponse ButtonState::MouseUp(Point at, MouseButton released, bool shift) {
    const bool wasRaised = face_ != ButtonFace::Normal;
    pressed_ = false;
    face_ = ButtonFace::Normal;
    captured_ = false;

    ButtonResponse response;
    response.repaint = wasRaised;
    response.capture = ButtonResponse::Capture::Release;
    if (wasRaised && !menuMode_ && Inside(at)) {
        const bool second = released == MouseButton::Other || shift;
        response.event = second ? ButtonResponse::Event::ShiftClick : ButtonResponse::Event::Click;
    }
    return response;
}

ButtonResponse ButtonState::CaptureLost() {
    ButtonResponse response;
    captured_ = false;
    pressed_ = false;
    response.repaint = face_ != ButtonFace::Normal;
    face_ = ButtonFace::Normal;
    return response;
}

}  // namespace quillo
