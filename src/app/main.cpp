#include <cstdlib>

#include "app/quillo_procs.h"
#include "platform/wide.h"
#include "platform/win32.h"

#if defined(__MINGW32__)
namespace __gnu_cxx {

/// Replaces the run-time library's handler, which writes the type of an uncaught exception to a console that this
/// program does not have, and would link in a tenth of the program's code.
void __verbose_terminate_handler() {
    std::abort();
}

}  // namespace __gnu_cxx
#endif

namespace {

/// The part of the command line after the program's own name, unchanged.
std::u16string_view ArgumentsOf(std::wstring_view commandLine) {
    bool quoted = false;
    std::size_t i = 0;
    for (; i < commandLine.size(); ++i) {
        if (commandLine[i] == L'"') quoted = !quoted;
        if (!quoted && (commandLine[i] == L' ' || commandLine[i] == L'\t')) break;
    }
    return quillo::FromWide(commandLine.substr(i));
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    return quillo::QuilloProcs().Main(ArgumentsOf(GetCommandLineW()));
}
