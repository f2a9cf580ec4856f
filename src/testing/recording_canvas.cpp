#include "testing/recording_canvas.h"

namespace quillo {

void RecordingCanvas::Fill(const Rect& area, ColorWord color) {
    Call call;
    call.kind = Call::Kind::Fill;
    call.area = area;
    call.color = color;
    calls_.push_back(call);
}

void RecordingCanvas::Box(const Rect& area, int thickness, ColorWord color) {
    Call call;
    call.kind = Call::Kind::Box;
    call.area = area;
    call.size = thickness;
    call.color = color;
    calls_.push_back(call);
}

void RecordingCanvas::Line(Point from, Point to, int thickness, ColorWord color) {
    Call call;
    call.kind = Call::Kind::Line;
    call.from = from;
    call.to = to;
    call.size = thickness;
    call.color = color;
    calls_.push_back(call);
}

void RecordingCanvas::Text(Point at, std::u16string_view text, int points, ColorWord color) {
    Call call;
    call.kind = Call::Kind::Text;
    call.from = at;
    call.size = points;
    call.text = text;
    call.color = color;
    calls_.push_back(call);
}

void RecordingCanvas::Gradient(const Rect& area, ColorWord top, ColorWord bottom) {
    Call call;
    call.kind = Call::Kind::Gradient;
    call.area = area;
    call.color = top;
    call.second = bottom;
    calls_.push_back(call);
}

}  // namespace quillo
