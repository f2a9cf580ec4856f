#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/win32.h"

namespace quillo::e2e {

/// The name of the system's default printer; "" if there is none.
[[nodiscard]] std::wstring DefaultPrinter();

/// Makes a PostScript printer the system's default for the life of the object. scripts/check_printing.sh describes it
/// in the environment:
///   QUILLO_TEST_PPD   the description of the printer
///   QUILLO_TEST_PORT  its port, which writes the text of a complete document to the file QUILLO_PRINTED, in UTF-8 with
///                     a form feed after each page; next to it the document itself, with the ending ".ps", and a
///                     line for each document, with the ending ".count"
class TestPrinter {
  public:
    /// `port` replaces the one in the environment.
    explicit TestPrinter(std::wstring port = L"");
    TestPrinter(const TestPrinter&) = delete;
    TestPrinter& operator=(const TestPrinter&) = delete;
    ~TestPrinter();

    /// Waits for the next document; returns its pages, each a list of lines that are trimmed and not empty.
    [[nodiscard]] std::vector<std::vector<std::string>> TakePages() const;
    /// Whether a document has been printed that was not taken.
    [[nodiscard]] bool HasPrinted() const;
    /// How many documents have been printed since the object was created.
    [[nodiscard]] std::size_t Documents() const;
    /// The title that the printer received for the last document.
    [[nodiscard]] std::string DocumentTitle() const;

  private:
    std::wstring printed_;
    std::wstring defaultBefore_;
};

}  // namespace quillo::e2e
