#include <exception>
#include <string>
#include <vector>

#include "command_line.h"
#include "host_win.h"
#include "options.h"
#include "wide_path.h"

int wmain(int count, wchar_t** arguments) {
    using namespace quillo::qln;
    const std::unique_ptr<Console> console = MakeWinConsole();
    try {
        WinHost host(*console);
        std::vector<std::string> words;
        for (int i = 1; i < count; ++i) words.push_back(FromWideText(arguments[i]));
        return RunCommandLine(words, host);
    } catch (const std::exception& problem) {
        Complain(*console, problem.what());
        return kFailed;
    }
}
