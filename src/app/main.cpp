#include <cstdlib>

#include "app/quillo_procs.h"
#include "platform/wide.h"
#include "platform/win32.h"

#if defined(__MINGW32__)
namespace __gnu_cxx {

/// Takes the place of the run-time library's own handler, which writes the type of an uncaught exception to a console
/// that this program does not have, and would bring a tenth of the program's code along for it.
void __verbose_terminate_handler() {
    std::abort();
}

}  // namespace __gnu_cxx
#endif

namespace {

/// What follows the program's own name on the command line, untouched.
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
