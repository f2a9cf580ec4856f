#include "mainmenu/icon_finder.h"

#include <process.h>

#include <deque>
#include <utility>

#include "platform/com_scope.h"

namespace quillo {
namespace {

class LockScope {
  public:
    explicit LockScope(SRWLOCK& lock) : lock_(lock) { AcquireSRWLockExclusive(&lock_); }
    LockScope(const LockScope&) = delete;
    LockScope& operator=(const LockScope&) = delete;
    ~LockScope() { ReleaseSRWLockExclusive(&lock_); }

  private:
    SRWLOCK& lock_;
};

ShortcutIcon AskShell(const IconRequest& request) {
    return {request.file, request.size};
}

}  // namespace

struct IconFinder::Shared {
    explicit Shared(IconLookUp find) : lookUp(find ? std::move(find) : &AskShell) {}

    const IconLookUp lookUp;
    // The lock protects the members below it.
    SRWLOCK lock = SRWLOCK_INIT;
    std::deque<IconRequest> requests;
    std::vector<FoundIcon> found;
    HWND window = nullptr;
    UINT message = 0;
    bool running = false;
    bool abandoned = false;
};

IconFinder::IconFinder(IconLookUp lookUp) : shared_(std::make_shared<Shared>(std::move(lookUp))) {}

IconFinder::~IconFinder() {
    const LockScope locked(shared_->lock);
    shared_->abandoned = true;
}

void IconFinder::Ask(HWND window, UINT message, std::vector<IconRequest> requests) {
    const LockScope locked(shared_->lock);
    shared_->window = window;
    shared_->message = message;
    for (IconRequest& request : requests) shared_->requests.push_back(std::move(request));
    if (!shared_->running && !shared_->requests.empty()) shared_->running = Start();
}

bool IconFinder::Start() const {
    auto ofThread = std::make_unique<std::shared_ptr<Shared>>(shared_);
    const auto thread = _beginthreadex(nullptr, 0, &IconFinder::Run, ofThread.get(), 0, nullptr);
    if (thread == 0) return false;  // the slots stay without icons until the next request
    (void)ofThread.release();       // the thread owns it now
    CloseHandle(reinterpret_cast<HANDLE>(thread));
    return true;
}

std::vector<FoundIcon> IconFinder::Take() {
    const LockScope locked(shared_->lock);
    return std::exchange(shared_->found, {});
}

bool IconFinder::Next(Shared& state, IconRequest& request) {
    const LockScope locked(state.lock);
    if (state.abandoned || state.requests.empty()) {
        state.running = false;
        return false;
    }
    request = std::move(state.requests.front());
    state.requests.pop_front();
    return true;
}

unsigned __stdcall IconFinder::Run(void* shared) {
    const std::unique_ptr<std::shared_ptr<Shared>> owned(static_cast<std::shared_ptr<Shared>*>(shared));
    Shared& state = **owned;
    const ComScope com;
    IconRequest request;
    while (Next(state, request)) {
        ShortcutIcon icon = state.lookUp(request);
        const LockScope locked(state.lock);
        if (state.abandoned) continue;
        state.found.push_back({request, std::move(icon)});
        PostMessageW(state.window, state.message, 0, 0);
    }
    return 0;
}

}  // namespace quillo
