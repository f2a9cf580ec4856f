#pragma once

// The only include of windows.h. UNICODE is off and every call has its suffix (CreateWindowExW), because the generic
// names are macros and some of them (MessageBox, DrawText, FindWindow) are member names of ours.
#ifdef UNICODE
#undef UNICODE
#endif
#ifdef _UNICODE
#undef _UNICODE
#endif
#ifndef STRICT
#define STRICT
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif

#include <windows.h>
