#include "platform/animation.h"

#include "platform/late_library.h"

namespace quillo {
namespace {

using PeriodFunction = LateFunction<UINT WINAPI(UINT)>;
constexpr UINT kMillisecond = 1;

}  // namespace

bool SystemAnimates() {
    BOOL animates = TRUE;
    SystemParametersInfoW(SPI_GETCLIENTAREAANIMATION, 0, &animates, 0);
    return animates != FALSE;
}

bool IsRemoteSession() {
    return GetSystemMetrics(SM_REMOTESESSION) != 0;
}

FineClockScope::FineClockScope() {
    static PeriodFunction begin(L"winmm.dll", "timeBeginPeriod");
    begun_ = begin.Get() != nullptr && begin.Get()(kMillisecond) == 0;
}

FineClockScope::~FineClockScope() {
    static PeriodFunction end(L"winmm.dll", "timeEndPeriod");
    if (begun_ && end.Get() != nullptr) end.Get()(kMillisecond);
}

}  // namespace quillo
