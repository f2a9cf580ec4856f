#include "platform/styled_controls.h"

#include "platform/late_library.h"
#include "platform/window.h"
#include "resources/resource_ids.h"
#include "util/ignore.h"

// After windows.h.
#include <commctrl.h>

namespace quillo {
namespace {

/// Kept until the process ends, as the windows that were created with it.
HANDLE ContextOfTheProgram() {
    ACTCTXW plan{};
    plan.cbSize = sizeof plan;
    plan.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
    plan.hModule = ThisModule();
    plan.lpResourceName = MAKEINTRESOURCEW(IDR_CONTROLS_MANIFEST);
    return CreateActCtxW(&plan);
}

bool RegisterControls() {
    static LateFunction<BOOL WINAPI(const INITCOMMONCONTROLSEX*)> initialize(L"comctl32.dll", "InitCommonControlsEx");
    const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_STANDARD_CLASSES | ICC_WIN95_CLASSES};
    return initialize.Get() != nullptr && initialize.Get()(&controls) != 0;
}

}  // namespace

StyledControls::StyledControls() {
    static const HANDLE context = ContextOfTheProgram();
    active_ = context != INVALID_HANDLE_VALUE && ActivateActCtx(context, &cookie_) != 0;
    static const bool registered = RegisterControls();
    Ignore(registered, "a control that cannot be created reports that itself");
}

StyledControls::~StyledControls() {
    if (active_) DeactivateActCtx(0, cookie_);
}

}  // namespace quillo
