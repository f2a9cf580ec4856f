#pragma once

#include <string>

namespace quillo::e2e {

/// The output of one run of qln.exe.
struct ConsoleRun {
    unsigned long code = 0;
    std::string out;    ///< UTF-8
    std::string error;  ///< UTF-8
};

/// Runs the console program next to quillo.exe to its end; fails the test if it cannot be started or does not end.
/// `arguments` is the rest of the command line after its name.
[[nodiscard]] ConsoleRun RunQln(const std::wstring& arguments);

}  // namespace quillo::e2e
