#include "harness/drag_source.h"

#include <atomic>
#include <cstring>
#include <thread>

#include "harness/input.h"
#include "harness/stack_object.h"

// After windows.h.
#include <ole2.h>
#include <shlobj.h>

namespace quillo::e2e {
namespace {

class OfferedData : public StackObject<IDataObject> {
  public:
    explicit OfferedData(const DragData& data) : data_(data) {}

    HRESULT STDMETHODCALLTYPE GetData(FORMATETC* wanted, STGMEDIUM* medium) override {
        if (QueryGetData(wanted) != S_OK) return DV_E_FORMATETC;
        const std::string& bytes = data_.at(wanted->cfFormat);
        HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes.size());
        if (memory == nullptr) return E_OUTOFMEMORY;
        std::memcpy(GlobalLock(memory), bytes.data(), bytes.size());
        GlobalUnlock(memory);
        *medium = STGMEDIUM{};
        medium->tymed = TYMED_HGLOBAL;
        medium->hGlobal = memory;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE QueryGetData(FORMATETC* wanted) override {
        const bool offered = data_.count(wanted->cfFormat) != 0 && (wanted->tymed & TYMED_HGLOBAL) != 0;
        return offered ? S_OK : DV_E_FORMATETC;
    }
    HRESULT STDMETHODCALLTYPE EnumFormatEtc(DWORD direction, IEnumFORMATETC** formats) override {
        if (direction != DATADIR_GET) return E_NOTIMPL;
        std::vector<FORMATETC> list;
        for (const auto& [format, bytes] : data_) {
            list.push_back(FORMATETC{static_cast<CLIPFORMAT>(format), nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL});
        }
        return SHCreateStdEnumFmtEtc(static_cast<UINT>(list.size()), list.data(), formats);
    }
    HRESULT STDMETHODCALLTYPE GetDataHere(FORMATETC*, STGMEDIUM*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetCanonicalFormatEtc(FORMATETC*, FORMATETC*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetData(FORMATETC*, STGMEDIUM*, BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DAdvise(FORMATETC*, DWORD, IAdviseSink*, DWORD*) override {
        return OLE_E_ADVISENOTSUPPORTED;
    }
    HRESULT STDMETHODCALLTYPE DUnadvise(DWORD) override { return OLE_E_ADVISENOTSUPPORTED; }
    HRESULT STDMETHODCALLTYPE EnumDAdvise(IEnumSTATDATA**) override { return OLE_E_ADVISENOTSUPPORTED; }

  private:
    const DragData& data_;
};

/// Drops when the button is up; gives up after too long a drag, because the release may have been lost.
class Dragging : public StackObject<IDropSource> {
  public:
    HRESULT STDMETHODCALLTYPE QueryContinueDrag(BOOL escape, DWORD keys) override {
        constexpr ULONGLONG kLongestDrag = 10'000;
        if (escape != FALSE || GetTickCount64() - begun_ > kLongestDrag) return DRAGDROP_S_CANCEL;
        return (keys & MK_LBUTTON) == 0 ? DRAGDROP_S_DROP : S_OK;
    }
    HRESULT STDMETHODCALLTYPE GiveFeedback(DWORD) override {
        ++answers_;
        return DRAGDROP_S_USEDEFAULTCURSORS;
    }
    /// How often the target has said whether it would accept the drop.
    [[nodiscard]] int Answers() const { return answers_; }

  private:
    ULONGLONG begun_ = GetTickCount64();
    std::atomic<int> answers_{0};
};

/// A small window above all others, the source of the drag.
class SourceWindow {
  public:
    SourceWindow()
        : window_(CreateWindowExW(WS_EX_TOPMOST | WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE, L"STATIC", L"",
                                  WS_POPUP | WS_VISIBLE | WS_BORDER | SS_NOTIFY, 4, 4, 40, 40, nullptr, nullptr,
                                  GetModuleHandleW(nullptr), nullptr)) {}
    SourceWindow(const SourceWindow&) = delete;
    SourceWindow& operator=(const SourceWindow&) = delete;
    ~SourceWindow() { DestroyWindow(window_); }

    /// Presses the mouse over the window until the press has arrived.
    [[nodiscard]] bool TakePress() const {
        bool pressed = false;
        return Until(
            [&] {
                MSG message{};
                while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0) {
                    pressed |= message.message == WM_LBUTTONDOWN && message.hwnd == window_;
                    DispatchMessageW(&message);
                }
                return pressed;
            },
            [] {
                constexpr POINT kInside{20, 20};
                ReleaseMouse(kInside);
                MoveMouse(kInside);
                PressMouse(kInside);
            });
    }

  private:
    HWND window_;
};

void ReleaseIfDown() {
    POINT now{};
    if (GetAsyncKeyState(VK_LBUTTON) < 0 && GetCursorPos(&now) != 0) ReleaseMouse(now);
}

}  // namespace

UINT LinkClipboardFormat() {
    return RegisterClipboardFormatW(L"UniformResourceLocator");
}

std::string WideTextBytes(const std::wstring& text) {
    return std::string(reinterpret_cast<const char*>(text.c_str()), (text.size() + 1) * sizeof(wchar_t));
}

std::string NarrowTextBytes(const std::string& text) {
    return std::string(text.c_str(), text.size() + 1);
}

std::string FileListBytes(const std::vector<std::wstring>& paths) {
    DROPFILES head{};
    head.pFiles = sizeof head;
    head.fWide = TRUE;
    std::string bytes(reinterpret_cast<const char*>(&head), sizeof head);
    for (const std::wstring& path : paths) bytes += WideTextBytes(path);
    return bytes + std::string(sizeof(wchar_t), '\0');
}

bool DragTo(const DragData& data, POINT to) {
    if (FAILED(OleInitialize(nullptr))) return false;
    DWORD effect = DROPEFFECT_NONE;
    {
        const SourceWindow source;
        if (source.TakePress()) {
            std::atomic<bool> over{false};
            OfferedData offered(data);
            Dragging dragging;
            std::thread hand([&over, &dragging, to] {
                constexpr int kSteps = 10;
                for (int i = 1; i <= kSteps; ++i) {
                    MoveMouse(POINT{20 + (to.x - 20) * i / kSteps, 20 + (to.y - 20) * i / kSteps});
                    std::this_thread::sleep_for(std::chrono::milliseconds(30));  // the speed of a hand
                }
                // Only after the target window has been asked: its last answer decides about a release. The first
                // answer may still come from a window on the way.
                const int before = dragging.Answers();
                (void)Eventually([&] {
                    MoveMouse(to);
                    return dragging.Answers() >= before + 2 || over.load();
                });
                // Repeats the release until it has arrived, but no longer: the target would receive a second one.
                (void)Eventually([&over, to] {
                    ReleaseIfDown();
                    MoveMouse(to);
                    return over.load();
                });
            });
            DoDragDrop(&offered, &dragging, DROPEFFECT_COPY | DROPEFFECT_LINK, &effect);
            over = true;
            hand.join();
        }
        ReleaseIfDown();
    }
    OleUninitialize();
    return effect == DROPEFFECT_COPY;
}

}  // namespace quillo::e2e
