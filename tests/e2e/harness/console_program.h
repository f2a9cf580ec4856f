#pragma once

#include <string>

namespace quillo::e2e {

/// What one run of qln.exe has said.
struct ConsoleRun {
    unsigned long code = 0;
    std::string out;    ///< UTF-8
    std::string error;  ///< UTF-8
};

/// Runs the console program beside quillo.exe to its end; fails the test when it cannot be started or does not end.
/// `arguments` is what a user types after its name.
[[nodiscard]] ConsoleRun RunQln(const std::wstring& arguments);

}  // namespace quillo::e2e
