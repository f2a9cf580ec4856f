#pragma once

#include "ports/printer.h"

namespace quillo {

class BusyFlag;

/// The current default printer, through GDI. The spooler's library is loaded for the first document.
class WinPrinter : public Printer {
  public:
    /// `dialogs` is set for the life of a job: the printer may show windows of its own.
    explicit WinPrinter(BusyFlag& dialogs) : dialogs_(dialogs) {}
    [[nodiscard]] std::unique_ptr<PrintJob> Open(std::u16string_view documentName) override;

  private:
    BusyFlag& dialogs_;
};

}  // namespace quillo
