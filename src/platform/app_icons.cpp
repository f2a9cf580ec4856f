#include "platform/app_icons.h"

#include "platform/dpi.h"
#include "platform/late_library.h"
#include "platform/window.h"
#include "resources/resource_ids.h"

namespace quillo {
namespace {

int MetricAt(int metric, const Scale& scale) {
    static LateFunction<int WINAPI(int, UINT)> metricForDpi(L"user32.dll", "GetSystemMetricsForDpi");
    if (metricForDpi.Get() != nullptr) return metricForDpi.Get()(metric, static_cast<UINT>(scale.Dpi()));
    return GetSystemMetrics(metric);
}

}  // namespace

IconHandle LoadIconOfSize(int resource, int edge) {
    return IconHandle(static_cast<HICON>(
        LoadImageW(ThisModule(), MAKEINTRESOURCEW(resource), IMAGE_ICON, edge, edge, LR_DEFAULTCOLOR)));
}

int SmallIconEdge(const Scale& scale) {
    return MetricAt(SM_CXSMICON, scale);
}

int LargeIconEdge(const Scale& scale) {
    return MetricAt(SM_CXICON, scale);
}

Scale TaskBarScale() {
    return PointScale(POINT{0, 0});  // the primary monitor's first pixel
}

HICON TrayPicture::Handle() {
    if (HasChanged()) {
        edge_ = SmallIconEdge(TaskBarScale());
        icon_ = LoadIconOfSize(IDI_QUILLO, edge_);
    }
    return icon_.Get();
}

bool TrayPicture::HasChanged() const {
    return !icon_ || edge_ != SmallIconEdge(TaskBarScale());
}

HICON SharedIcons::Answer(WPARAM kind, const Scale& scale) {
    const int edge = kind == ICON_BIG ? LargeIconEdge(scale) : SmallIconEdge(scale);
    for (const Entry& entry : icons_) {
        if (entry.edge == edge) return entry.icon.Get();
    }
    icons_.push_back(Entry{edge, LoadIconOfSize(IDI_QUILLO, edge)});
    return icons_.back().icon.Get();
}

void WindowIcons::GiveTo(HWND window, const Scale& scale) {
    IconHandle small = LoadIconOfSize(IDI_QUILLO, SmallIconEdge(scale));
    IconHandle large = LoadIconOfSize(IDI_QUILLO, LargeIconEdge(scale));
    SendMessageW(window, WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(small.Get()));
    SendMessageW(window, WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(large.Get()));
    // The old icons are destroyed only now that the window no longer uses them.
    small_ = std::move(small);
    large_ = std::move(large);
}

}  // namespace quillo
