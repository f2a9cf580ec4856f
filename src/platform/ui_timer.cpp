#include "platform/ui_timer.h"

#include <algorithm>
#include <vector>

namespace quillo {
namespace {

struct Running {
    UINT_PTR id;
    UiTimer* timer;
};

/// The running timers of the one user-interface thread: a message that was already posted when its timer was stopped
/// finds nothing here.
std::vector<Running>& RunningTimers() {
    static std::vector<Running> timers;
    return timers;
}

UiTimer* FindTimer(UINT_PTR id) {
    const auto& timers = RunningTimers();
    const auto found = std::find_if(timers.begin(), timers.end(), [id](const Running& r) { return r.id == id; });
    return found == timers.end() ? nullptr : found->timer;
}

}  // namespace

void UiTimer::Start(UINT milliseconds) {
    Stop();
    if (milliseconds == 0) return;
    id_ = SetTimer(nullptr, 0, milliseconds, &UiTimer::OnTimer);
    if (id_ != 0) RunningTimers().push_back({id_, this});
}

void UiTimer::Stop() {
    if (id_ == 0) return;
    KillTimer(nullptr, id_);
    std::erase_if(RunningTimers(), [this](const Running& r) { return r.timer == this; });
    id_ = 0;
}

UiTimer::~UiTimer() {
    Stop();
}

void CALLBACK UiTimer::OnTimer(HWND, UINT, UINT_PTR id, DWORD) noexcept {
    UiTimer* timer = FindTimer(id);
    if (timer == nullptr || timer->lifetime_.IsRaising()) return;
    try {
        timer->lifetime_.RaiseLast(timer->tick_);
    } catch (...) {
        // A failed tick is dropped; the next one follows.
    }
}

}  // namespace quillo
