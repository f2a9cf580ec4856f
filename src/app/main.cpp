#include "app/quillo_procs.h"
#include "platform/wide.h"
#include "platform/win32.h"

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
