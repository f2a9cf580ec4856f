#include <exception>
#include <string>
#include <vector>

#include "command_line.h"
#include "host_posix.h"
#include "options.h"

int main(int count, char** arguments) {
    using namespace quillo::qln;
    const std::unique_ptr<Console> console = MakePosixConsole();
    try {
        PosixHost host(*console);
        return RunCommandLine(std::vector<std::string>(arguments + 1, arguments + count), host);
    } catch (const std::exception& problem) {
        Complain(*console, problem.what());
        return kFailed;
    }
}
