#pragma once

#include "platform/win32.h"

// After windows.h.
#include <ole2.h>

#include <string>
#include <string_view>
#include <vector>

namespace quillo {

/// OLE for the user-interface thread. It starts at the first use and ends with the program.
class OleSession {
  public:
    OleSession() = default;
    OleSession(const OleSession&) = delete;
    OleSession& operator=(const OleSession&) = delete;
    ~OleSession();

    /// False when the system refuses; what needs OLE is then done without.
    [[nodiscard]] bool Start();

  private:
    bool started_ = false;
};

/// Whether dragged data comes in that format, in global memory.
[[nodiscard]] bool OffersFormat(IDataObject* data, CLIPFORMAT format);
/// The bytes of dragged data in that format; "" when it does not have it.
[[nodiscard]] std::string DroppedBytes(IDataObject* data, CLIPFORMAT format);
/// The full paths of the files that are dragged; none when the data is no list of files.
[[nodiscard]] std::vector<std::u16string> DroppedFiles(IDataObject* data);

/// What OLE asks of every drop target beside the dragging itself. OLE counts its references, whoever made it holds one.
class DropTarget : public IDropTarget {
  public:
    DropTarget() = default;
    DropTarget(const DropTarget&) = delete;
    DropTarget& operator=(const DropTarget&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

  protected:
    virtual ~DropTarget() = default;

  private:
    ULONG references_ = 1;
};

}  // namespace quillo
