#pragma once

#include "ports/printer.h"

namespace quillo {

/// The default printer of the moment, by way of GDI. The spooler's library is loaded at the first printing.
class WinPrinter : public Printer {
  public:
    [[nodiscard]] std::unique_ptr<PrintJob> Open(std::u16string_view documentName) override;
};

}  // namespace quillo
