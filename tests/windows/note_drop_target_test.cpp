#include "notes/note_drop_target.h"

#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <map>
#include <new>

#include "note_fixture.h"
#include "platform/drop_registration.h"
#include "platform/wide.h"

// After windows.h.
#include <shellapi.h>
#include <shlobj.h>

namespace quillo {
namespace {

using windows_tests::ChildId;
using windows_tests::NoteWorldForTests;
using windows_tests::PumpUntil;
using windows_tests::TestNote;

/// Data dragged by another program: bytes in global memory for each format that it offers.
class DraggedData : public IDataObject {
  public:
    virtual ~DraggedData() = default;

    void Offer(CLIPFORMAT format, std::string bytes) { offered_[format] = std::move(bytes); }
    void OfferText(std::u16string_view text) {
        Offer(CF_UNICODETEXT,
              std::string(reinterpret_cast<const char*>(text.data()), text.size() * 2) + std::string(2, '\0'));
    }
    void OfferFiles(const std::vector<std::u16string>& paths) {
        DROPFILES header{};
        header.pFiles = sizeof header;
        header.fWide = TRUE;
        std::string bytes(reinterpret_cast<const char*>(&header), sizeof header);
        for (const std::u16string& path : paths) {
            bytes.append(reinterpret_cast<const char*>(path.c_str()), (path.size() + 1) * 2);
        }
        Offer(CF_HDROP, bytes + std::string(2, '\0'));
    }
    int references = 1;
    std::function<void()> whileAsked;  ///< the messages handled while the source supplies its data

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** object) override {
        *object = this;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(++references); }
    ULONG STDMETHODCALLTYPE Release() override { return static_cast<ULONG>(--references); }
    HRESULT STDMETHODCALLTYPE QueryGetData(FORMATETC* format) override {
        return offered_.count(format->cfFormat) != 0 && (format->tymed & TYMED_HGLOBAL) != 0 ? S_OK : DV_E_FORMATETC;
    }
    HRESULT STDMETHODCALLTYPE GetData(FORMATETC* format, STGMEDIUM* medium) override {
        if (QueryGetData(format) != S_OK) return DV_E_FORMATETC;
        if (whileAsked) whileAsked();
        const std::string& bytes = offered_[format->cfFormat];
        medium->tymed = TYMED_HGLOBAL;
        medium->hGlobal = GlobalAlloc(GMEM_MOVEABLE, bytes.size());
        std::memcpy(GlobalLock(medium->hGlobal), bytes.data(), bytes.size());
        GlobalUnlock(medium->hGlobal);
        medium->pUnkForRelease = nullptr;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetDataHere(FORMATETC*, STGMEDIUM*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetCanonicalFormatEtc(FORMATETC*, FORMATETC*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetData(FORMATETC*, STGMEDIUM*, BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE EnumFormatEtc(DWORD, IEnumFORMATETC**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DAdvise(FORMATETC*, DWORD, IAdviseSink*, DWORD*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DUnadvise(DWORD) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE EnumDAdvise(IEnumSTATDATA**) override { return E_NOTIMPL; }

  private:
    std::map<CLIPFORMAT, std::string> offered_;
};

class NoteDropTargetTest : public testing::Test {
  protected:
    NoteDropTargetTest() {
        box_ = CreateWindowExW(0, L"EDIT", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
        target_ = new NoteDropTarget(box_, world_.locale, world_.shell, [this](std::u16string_view text) {
            if (fails_) throw std::bad_alloc();
            if (!full_) inserted_ += text;
            return !full_;
        });
    }
    ~NoteDropTargetTest() override {
        if (target_ != nullptr) {
            EXPECT_EQ(target_->Release(), 0U);
        }
        EXPECT_EQ(data_.references, 1) << "the dragged object was given back";
        DestroyWindow(box_);
    }
    /// Enter, over, drop; the effect of the drop.
    DWORD Drop(DWORD offered = DROPEFFECT_COPY | DROPEFFECT_MOVE) {
        DWORD effect = offered;
        EXPECT_EQ(target_->DragEnter(&data_, 0, POINTL{}, &effect), S_OK);
        const DWORD entered = effect;
        effect = offered;
        EXPECT_EQ(target_->DragOver(MK_SHIFT, POINTL{}, &effect), S_OK);
        EXPECT_EQ(effect, entered);
        effect = offered;
        EXPECT_EQ(target_->Drop(&data_, 0, POINTL{}, &effect), S_OK);
        return effect;
    }

    NoteWorldForTests world_;
    DraggedData data_;
    HWND box_ = nullptr;
    NoteDropTarget* target_ = nullptr;
    std::u16string inserted_;
    bool full_ = false;   ///< the note is full
    bool fails_ = false;  ///< the system is out of memory
};

TEST_F(NoteDropTargetTest, ADropThatDoesNotFitIsReportedToItsSource) {
    data_.OfferText(u"one word too many");
    full_ = true;
    EXPECT_EQ(Drop(), DROPEFFECT_NONE);
    EXPECT_EQ(inserted_, u"");
}

TEST_F(NoteDropTargetTest, AcceptsWideText) {
    data_.OfferText(u"\u65E5\u672C \U0001F58B");
    data_.Offer(CF_TEXT, "narrow");
    EXPECT_EQ(Drop(), DWORD{DROPEFFECT_COPY});
    EXPECT_EQ(inserted_, u"\u65E5\u672C \U0001F58B");
}

TEST_F(NoteDropTargetTest, AcceptsNarrowTextUpToItsNull) {
    data_.Offer(CF_TEXT, std::string("text\0rest", 9));
    EXPECT_EQ(Drop(), DWORD{DROPEFFECT_COPY});
    EXPECT_EQ(inserted_, u"text");
}

TEST_F(NoteDropTargetTest, PrefersALink) {
    data_.Offer(LinkFormat(), std::string("http://example.org/\0", 20));
    data_.OfferText(u"the text of the link");
    EXPECT_EQ(Drop(DROPEFFECT_LINK), DWORD{DROPEFFECT_LINK}) << "the only effect that a browser offers";
    EXPECT_EQ(inserted_, u"http://example.org/");
}

TEST_F(NoteDropTargetTest, FilesAreInsertedOnePerLine) {
    world_.shell.SetLink(u"C:\\x\\link.lnk", u"D:\\target.txt");
    data_.OfferFiles({u"C:\\x\\\u65E5.txt", u"C:\\x\\link.lnk"});
    EXPECT_EQ(Drop(), DWORD{DROPEFFECT_COPY});
    EXPECT_EQ(inserted_, u"C:\\x\\\u65E5.txt\r\nD:\\target.txt\r\n");
}

TEST_F(NoteDropTargetTest, RefusesDataThatItCannotUse) {
    EXPECT_EQ(Drop(), DWORD{DROPEFFECT_NONE});
    data_.Offer(CF_BITMAP, "x");
    EXPECT_EQ(Drop(), DWORD{DROPEFFECT_NONE});
    EXPECT_EQ(inserted_, u"");
}

TEST_F(NoteDropTargetTest, ASourceThatOnlyMovesKeepsItsText) {
    data_.OfferText(u"text");
    DWORD effect = DROPEFFECT_MOVE;
    EXPECT_EQ(target_->DragEnter(&data_, 0, POINTL{}, &effect), S_OK);
    EXPECT_EQ(effect, DWORD{DROPEFFECT_MOVE}) << "it is accepted";
    EXPECT_EQ(Drop(DROPEFFECT_MOVE), DWORD{DROPEFFECT_NONE}) << "but nothing is reported as moved";
    EXPECT_EQ(inserted_, u"text");
}

TEST_F(NoteDropTargetTest, DamagedDataInsertsNothing) {
    data_.Offer(CF_UNICODETEXT, std::string(1, 'x'));
    Drop();
    EXPECT_EQ(inserted_, u"");
}

TEST_F(NoteDropTargetTest, ADisconnectedTargetRefusesEverything) {
    data_.OfferText(u"text");
    target_->Disconnect();
    EXPECT_EQ(Drop(), DWORD{DROPEFFECT_NONE});
    EXPECT_EQ(inserted_, u"");
}

TEST_F(NoteDropTargetTest, ATargetReleasedWhileTheSourceIsAskedInsertsNothing) {
    data_.OfferText(u"text");
    target_->AddRef();  // OLE's own reference, released when the target is revoked
    data_.whileAsked = [this] {
        target_->Disconnect();
        target_->Release();
        target_->Release();
    };
    DWORD effect = DROPEFFECT_COPY;
    EXPECT_EQ(target_->Drop(&data_, 0, POINTL{}, &effect), S_OK);
    target_ = nullptr;
    EXPECT_EQ(effect, DWORD{DROPEFFECT_NONE});
    EXPECT_EQ(inserted_, u"");
}

TEST_F(NoteDropTargetTest, ANoteDisabledWhileTheSourceIsAskedAcceptsNothing) {
    data_.OfferText(u"text");
    data_.whileAsked = [this] { EnableWindow(box_, FALSE); };
    EXPECT_EQ(Drop(), DWORD{DROPEFFECT_NONE});
    EXPECT_EQ(inserted_, u"");
    EXPECT_EQ(Drop(), DWORD{DROPEFFECT_NONE}) << "and nothing is offered while it is disabled";
    data_.whileAsked = nullptr;
    EnableWindow(box_, TRUE);
    EXPECT_EQ(Drop(), DWORD{DROPEFFECT_COPY});
}

TEST_F(NoteDropTargetTest, AFailureEndsAtTheBoundary) {
    data_.OfferText(u"text");
    fails_ = true;
    DWORD effect = DROPEFFECT_COPY;
    EXPECT_EQ(target_->Drop(&data_, 0, POINTL{}, &effect), E_UNEXPECTED);
    EXPECT_EQ(effect, DWORD{DROPEFFECT_NONE});
    EXPECT_EQ(target_->Drop(nullptr, 0, POINTL{}, &effect), E_INVALIDARG);
    EXPECT_EQ(target_->DragOver(0, POINTL{}, nullptr), E_INVALIDARG);
}

TEST_F(NoteDropTargetTest, AWindowWhoseOwnerIsDisabledAcceptsNothing) {
    const HWND inner = CreateWindowExW(0, L"EDIT", L"", WS_CHILD, 0, 0, 5, 5, box_, nullptr, nullptr, nullptr);
    auto* within = new NoteDropTarget(inner, world_.locale, world_.shell, [](std::u16string_view) { return true; });
    data_.OfferText(u"text");
    DWORD effect = DROPEFFECT_COPY;
    EXPECT_EQ(within->DragEnter(&data_, 0, POINTL{}, &effect), S_OK);
    EXPECT_EQ(effect, DWORD{DROPEFFECT_COPY});
    EnableWindow(box_, FALSE);
    EXPECT_EQ(within->DragOver(0, POINTL{}, &effect), S_OK);
    EXPECT_EQ(effect, DWORD{DROPEFFECT_NONE});
    within->Release();
}

TEST_F(NoteDropTargetTest, ARefusedRegistrationCanBeTriedAgain) {
    ASSERT_TRUE(world_.ole.Start());
    ASSERT_EQ(RegisterDragDrop(box_, target_), S_OK);
    const auto make = [this] {
        return DropTargetPtr(
            new NoteDropTarget(box_, world_.locale, world_.shell, [](std::u16string_view) { return true; }));
    };
    DropRegistration registration;
    EXPECT_FALSE(registration.Register(world_.ole, make())) << "another target is registered";
    EXPECT_FALSE(registration.IsRegistered());
    ASSERT_EQ(RevokeDragDrop(box_), S_OK);
    EXPECT_TRUE(registration.Register(world_.ole, make()));
    EXPECT_TRUE(registration.Register(world_.ole, make())) << "the last one counts";
    registration.Release();
    EXPECT_EQ(RevokeDragDrop(box_), DRAGDROP_E_NOTREGISTERED);
}

TEST_F(NoteDropTargetTest, AnswersForItsInterfacesOnly) {
    void* object = nullptr;
    EXPECT_EQ(target_->QueryInterface(IID_IDropTarget, &object), S_OK);
    EXPECT_EQ(object, static_cast<IDropTarget*>(target_));
    EXPECT_EQ(target_->Release(), 1U);
    EXPECT_EQ(target_->QueryInterface(IID_IDataObject, &object), E_NOINTERFACE);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(target_->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
}

/// OLE keeps the registered target as a property of the window.
bool TakesDrops(HWND box) {
    // A second registration is refused with this error as long as the first exists.
    NoteWorldForTests world;
    auto* probe = new NoteDropTarget(box, world.locale, world.shell, [](std::u16string_view) { return true; });
    const HRESULT result = RegisterDragDrop(box, probe);
    if (result == S_OK) RevokeDragDrop(box);
    probe->Release();
    return result == DRAGDROP_E_ALREADYREGISTERED;
}

TEST(NoteFormDropTest, TheTextBoxAcceptsDropsWhileTheOptionIsOn) {
    NoteWorldForTests world;
    ASSERT_TRUE(world.ole.Start());
    TestNote one(world, u"one");
    ASSERT_TRUE(one.Create());
    const HWND box = one.Child(ChildId::kMessageBox);
    EXPECT_TRUE(PumpUntil([&] { return TakesDrops(box); })) << "soon after the note has come";
    world.settings.dragAndDrop = false;
    one.note.UpdateColors();
    EXPECT_FALSE(TakesDrops(box));
    world.settings.dragAndDrop = true;
    one.note.UpdateColors();
    EXPECT_TRUE(TakesDrops(box));
}

TEST(NoteFormDropTest, ANoteThatOleRefusedAcceptsDropsWhenItIsShownAgain) {
    NoteWorldForTests world;
    ASSERT_TRUE(world.ole.Start());
    TestNote one(world, u"one");
    ASSERT_TRUE(one.Create());
    const HWND box = one.Child(ChildId::kMessageBox);
    auto* obstacle = new NoteDropTarget(box, world.locale, world.shell, [](std::u16string_view) { return true; });
    ASSERT_EQ(RegisterDragDrop(box, obstacle), S_OK);
    ASSERT_TRUE(one.Settle());
    ASSERT_EQ(RevokeDragDrop(box), S_OK);
    EXPECT_EQ(obstacle->Release(), 0U);
    EXPECT_FALSE(TakesDrops(box));
    one.form.Show();
    EXPECT_TRUE(TakesDrops(box));
}

}  // namespace
}  // namespace quillo
