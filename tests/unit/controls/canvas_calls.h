#pragma once

#include "testing/recording_canvas.h"

namespace quillo {

/// The recorded call that fills an area.
[[nodiscard]] inline RecordingCanvas::Call FillOf(const Rect& area, ColorWord color) {
    RecordingCanvas::Call call;
    call.kind = RecordingCanvas::Call::Kind::Fill;
    call.area = area;
    call.color = color;
    return call;
}

}  // namespace quillo
