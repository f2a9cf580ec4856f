#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/win32.h"

namespace quillo::e2e {

/// The name of the system's default printer; "" if there is none.
[[nodiscard]] std::wstring DefaultPrinter();

/// A PostScript printer as the system's default one, as long as the object lives. scripts/check_printing.sh names in
/// the environment what it is made of:
///   QUILLO_TEST_PPD   the description of the printer
///   QUILLO_TEST_PORT  where it prints to: something that puts the printed text into the file QUILLO_PRINTED, in UTF-8,
///                     a form feed after each page, once the whole document is there; the document itself beside it,
///                     under the ending ".ps", and a line for each document under the ending ".count"
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
