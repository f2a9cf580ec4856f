#pragma once

#include "platform/win32.h"

// After windows.h.
#include <ole2.h>

#include <string>
#include <string_view>
#include <vector>

#include "util/geometry.h"

namespace quillo {

/// OLE for the user-interface thread. It is started at its first use and ended with the program.
class OleSession {
  public:
    OleSession() = default;
    OleSession(const OleSession&) = delete;
    OleSession& operator=(const OleSession&) = delete;
    ~OleSession();

    /// False if the system refuses; features that need OLE are then unavailable.
    [[nodiscard]] bool Start();

  private:
    bool started_ = false;
};

/// Whether dragged data is available in that format, in global memory.
[[nodiscard]] bool OffersFormat(IDataObject* data, CLIPFORMAT format);
/// The bytes of dragged data in that format; "" if it does not have it.
[[nodiscard]] std::string DroppedBytes(IDataObject* data, CLIPFORMAT format);
/// The full paths of the dragged files; none if the data is not a list of files.
[[nodiscard]] std::vector<std::u16string> DroppedFiles(IDataObject* data);

/// The drop target of one window. OLE counts its references, and its creator holds one.
///
/// Every call to the dragged data may pump messages, in which the window can be disabled or destroyed. A handler checks
/// TakesDrops again after each call. Exceptions from a handler are caught here: OLE could not unwind them.
class DropTarget : public IDropTarget {
  public:
    /// `window` is borrowed.
    explicit DropTarget(HWND window) : window_(window) {}
    DropTarget(const DropTarget&) = delete;
    DropTarget& operator=(const DropTarget&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    HRESULT STDMETHODCALLTYPE DragEnter(IDataObject* data, DWORD keys, POINTL at, DWORD* effect) final;
    HRESULT STDMETHODCALLTYPE DragOver(DWORD keys, POINTL at, DWORD* effect) final;
    HRESULT STDMETHODCALLTYPE DragLeave() final;
    HRESULT STDMETHODCALLTYPE Drop(IDataObject* data, DWORD keys, POINTL at, DWORD* effect) final;

    [[nodiscard]] HWND Window() const { return window_; }
    /// The window's owner ends, or no longer accepts drops: no handler is called from now on.
    void Disconnect() { connected_ = false; }

  protected:
    virtual ~DropTarget() = default;

    /// False once no drop may be accepted: the target is disconnected, or its window or the window around that is
    /// disabled or destroyed.
    [[nodiscard]] bool TakesDrops() const;

    // Each gets a point of the screen and the effects that the source offers, and returns the one that it chooses.
    [[nodiscard]] virtual DWORD OnEnter(IDataObject* data, Point at, DWORD offered) = 0;
    [[nodiscard]] virtual DWORD OnOver(Point at, DWORD offered) = 0;
    virtual void OnLeave() {}
    [[nodiscard]] virtual DWORD OnDrop(IDataObject* data, Point at, DWORD offered) = 0;

  private:
    template <typename Handler>
    HRESULT Answer(DWORD* effect, Handler handler);

    HWND window_;
    bool connected_ = true;
    ULONG references_ = 1;
};

}  // namespace quillo
