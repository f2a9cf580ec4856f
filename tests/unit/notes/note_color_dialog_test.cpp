#include "notes/note_color_dialog.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace quillo {
namespace {

using WindowCalls = std::vector<std::string>;

/// A window that records its calls, and closes when told to.
class RecordingView : public NoteColorView {
  public:
    void ResetChoice() override { calls.emplace_back("reset"); }
    void SelectOption(bool own) override {
        calls.emplace_back(own ? "select own" : "select default");
        if (onSelect) onSelect(own);
    }
    void Close() override {
        calls.emplace_back("close");
        if (onClose) onClose();
    }
    WindowCalls calls;
    std::function<void(bool)> onSelect;
    std::function<void()> onClose;
};

class RecordingNote : public NoteColorTarget {
  public:
    struct Given {
        bool own;
        ColorScheme colors;
        friend bool operator==(const Given&, const Given&) = default;
    };
    void SetColor(bool own, ColorWord noteColor, ColorWord borderColor, ColorWord textColor) override {
        given.push_back({own, {noteColor, borderColor, textColor}});
    }
    void ColorClosing() override { ++closings; }

    std::vector<Given> given;
    int closings = 0;
};

using Given = std::vector<RecordingNote::Given>;

class NoteColorDialogTest : public testing::Test {
  protected:
    NoteColorDialogTest() {
        view_.onClose = [this] { dialog_.OnGone(); };
    }
    void Show(RecordingNote& note, bool own = false, const ColorScheme& colors = kSwatches[0]) {
        dialog_.Load(note, own, colors);
        dialog_.Shown();
        view_.calls.clear();
    }

    RecordingView view_;
    NoteColorDialog dialog_{view_};
    RecordingNote note_;
    RecordingNote other_;
};

TEST_F(NoteColorDialogTest, LoadingResetsTheChoiceAndSelectsTheNotesOption) {
    dialog_.Load(note_, true, kSwatches[3]);
    EXPECT_EQ(view_.calls, (WindowCalls{"reset", "select own"}));
    view_.calls.clear();
    dialog_.Load(note_, false, kSwatches[3]);
    EXPECT_EQ(view_.calls, (WindowCalls{"reset", "select default"}));
}

TEST_F(NoteColorDialogTest, ReportsOfTheControlsWhileLoadingAreIgnored) {
    view_.onSelect = [this](bool own) { dialog_.OnOptionClicked(own); };
    dialog_.Load(note_, true, kSwatches[3]);
    dialog_.OnOptionClicked(false);
    dialog_.OnColorPicked(kSwatches[5]);
    EXPECT_EQ(note_.given, Given{});
    dialog_.Shown();
    view_.onSelect = nullptr;
    dialog_.OnOptionClicked(true);
    EXPECT_EQ(note_.given, (Given{{true, kSwatches[3]}})) << "the note's own, untouched by what came meanwhile";
}

TEST_F(NoteColorDialogTest, PickingASwatchTurnsADefaultNoteIntoOneWithColorsOfItsOwnAtOnce) {
    Show(note_);
    dialog_.OnColorPicked(kSwatches[8]);
    EXPECT_EQ(view_.calls, WindowCalls{"select own"});
    EXPECT_EQ(note_.given, (Given{{true, kSwatches[8]}}));
}

TEST_F(NoteColorDialogTest, TheDefaultOptionKeepsTheColorsPickedLast) {
    Show(note_);
    dialog_.OnColorPicked(kSwatches[4]);
    dialog_.OnOptionClicked(false);
    dialog_.OnOptionClicked(true);
    EXPECT_EQ(note_.given, (Given{{true, kSwatches[4]}, {false, kSwatches[4]}, {true, kSwatches[4]}}));
}

TEST_F(NoteColorDialogTest, OkClosesAndNotifiesTheNote) {
    Show(note_);
    dialog_.OnOk();
    EXPECT_EQ(view_.calls, WindowCalls{"close"});
    EXPECT_EQ(note_.closings, 1);
    EXPECT_EQ(note_.given, Given{}) << "nothing is applied by closing";
}

TEST_F(NoteColorDialogTest, ASecondNoteTakesOverTheOneDialogIntended) {
    Show(note_, true, kSwatches[1]);
    Show(other_, false, kSwatches[2]);
    dialog_.OnColorPicked(kSwatches[7]);
    EXPECT_EQ(note_.given, Given{});
    EXPECT_EQ(other_.given, (Given{{true, kSwatches[7]}}));
    EXPECT_EQ(note_.closings, 0) << "the first cannot open it again while it is open";
}

TEST_F(NoteColorDialogTest, AfterItHasClosedEveryNoteCanOpenItAgain) {
    Show(note_);
    Show(other_);
    Show(other_);
    dialog_.OnOk();
    EXPECT_EQ(note_.closings, 1);
    EXPECT_EQ(other_.closings, 1);
    Show(note_);
    dialog_.OnGone();
    EXPECT_EQ(note_.closings, 2);
    EXPECT_EQ(other_.closings, 1) << "it had nothing to do with this one";
}

TEST_F(NoteColorDialogTest, TheEndOfItsNoteClosesIt) {
    Show(note_);
    Show(other_);
    dialog_.DropTarget(other_);
    EXPECT_EQ(view_.calls, WindowCalls{"close"});
    EXPECT_EQ(other_.closings, 0) << "it is past being told";
    EXPECT_EQ(note_.closings, 1);
}

TEST_F(NoteColorDialogTest, TheEndOfAnEarlierNoteDoesNotCloseIt) {
    Show(note_);
    Show(other_);
    dialog_.DropTarget(note_);
    EXPECT_EQ(view_.calls, WindowCalls{});
    dialog_.OnColorPicked(kSwatches[7]);
    EXPECT_EQ(other_.given.size(), 1U);
    dialog_.OnOk();
    EXPECT_EQ(note_.closings, 0);
}

TEST_F(NoteColorDialogTest, WithoutANoteNothingIsApplied) {
    Show(note_);
    dialog_.OnGone();
    dialog_.OnColorPicked(kSwatches[7]);
    dialog_.OnOptionClicked(false);
    dialog_.DropTarget(note_);
    EXPECT_EQ(note_.given, Given{});
}

}  // namespace
}  // namespace quillo
