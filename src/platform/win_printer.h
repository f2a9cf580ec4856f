#pragma once

#include "ports/printer.h"

namespace quillo {

class BusyFlag;

/// The default printer of the moment, by way of GDI. The spooler's library is loaded at the first printing.
class WinPrinter : public Printer {
  public:
    /// `dialogs` is set as long as a job lasts: the printer may show windows of its own.
    explicit WinPrinter(BusyFlag& dialogs) : dialogs_(dialogs) {}
    [[nodiscard]] std::unique_ptr<PrintJob> Open(std::u16string_view documentName) override;

  private:
    BusyFlag& dialogs_;
};

}  // namespace quillo
