#include "platform/after_painting.h"

#include <utility>

namespace quillo {
namespace {

constexpr UINT kMilliseconds = 10;  ///< the shortest interval of the system's timers

}  // namespace

void AfterPainting::Add(const void* owner, std::function<void()> work) {
    waiting_.push_back({owner, std::move(work)});
    if (!timer_.IsRunning()) timer_.Start(kMilliseconds);
}

void AfterPainting::Cancel(const void* owner) {
    std::erase_if(waiting_, [owner](const Waiting& each) { return each.owner == owner; });
    if (waiting_.empty()) timer_.Stop();
}

AfterPainting::Waiting AfterPainting::TakeNext() {
    Waiting next = std::move(waiting_.front());
    waiting_.erase(waiting_.begin());
    if (waiting_.empty()) timer_.Stop();
    return next;
}

void AfterPainting::Run() {
    // Until a message is waiting: input and painting come first. Work that throws leaves the rest to the next tick.
    do {
        TakeNext().work();
    } while (!waiting_.empty() && GetQueueStatus(QS_ALLINPUT) >> 16 == 0);
}

}  // namespace quillo
