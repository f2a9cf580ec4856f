#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "test_program.h"

namespace quillo {

/// The note's state on the disk and after the next start.
struct Outcome {
    std::size_t open = 0;      ///< notes with the text that the next start opens
    std::size_t outside = 0;   ///< files with the text outside the notes folder
    std::size_t recycled = 0;  ///< files with the text in the Recycle Bin
    std::size_t torn = 0;      ///< notes with any other text
};

/// A program with one stored note, which an earlier run has left open.
class FaultTest : public testing::Test {
  protected:
    static inline const std::u16string kText = u"Buy milk \u65E5\u672C \U0001F600";

    void SetUp() override { Fresh(); }

    void Fresh() {
        test_ = std::make_unique<TestProgram>();
        test_->files.PutFolder(kTestDesktop);
        NoteFile note;
        note.text = kText;
        test_->opening.CreateNote(note)->MarkChanged();
        ASSERT_TRUE(Note().PersistNote());
    }
    [[nodiscard]] OpenNote& Note() { return test_->views.Note(0); }

    /// The machine fails with the program and starts again: only the disk is left. The test continues
    /// with the new program.
    Outcome Restart() {
        test_->files.Revive();
        Outcome outcome;
        auto next = std::make_unique<TestProgram>();
        next->files = test_->files;
        next->shell.ContinueIdentifiers(test_->shell);
        const Recovery::Result result = next->recovery.Run();
        for (const FileEntry& file : next->files.List(kTestNotesFolder, kNoteExtension)) next->late.Open(file.path, 0);
        for (const std::u16string& path : result.files) next->late.Open(path, 0);
        for (std::size_t i = 0; i < next->views.Count(); ++i) {
            ++(next->views.Note(i).Text() == kText ? outcome.open : outcome.torn);
        }
        for (const std::u16string& path : next->files.PathsEndingIn(kNoteExtension)) {
            if (path.substr(0, kTestNotesFolder.size()) == kTestNotesFolder) continue;
            const std::optional<std::string> bytes = next->files.Read(path);
            if (!bytes) continue;  // locked by the test
            ++(ParseNoteFile(*bytes, next->locale).text == kText ? outcome.outside : outcome.torn);
        }
        const auto& recycled = test_->shell.recycled;
        next->shell.recycled.insert(next->shell.recycled.begin(), recycled.begin(), recycled.end());
        outcome.recycled = next->shell.recycled.size();
        leftovers_ = next->files.PathsEndingIn(u".new").size() + next->files.PathsEndingIn(u".qlr").size();
        test_ = std::move(next);
        return outcome;
    }

    /// Cuts the power after each single call that `act` makes, and examines the next start.
    void CutPowerEverywhere(const std::function<void()>& prepare, const std::function<void()>& act,
                            const std::function<bool(const Outcome&)>& isRight) {
        for (int calls = 0;; ++calls) {
            Fresh();
            prepare();
            test_->files.CutPowerAfter(calls);
            act();
            const bool complete = test_->files.ChangingCalls() <= calls;
            const Outcome outcome = Restart();
            EXPECT_TRUE(isRight(outcome)) << "after " << calls << " calls: open " << outcome.open << ", outside "
                                          << outcome.outside << ", recycled " << outcome.recycled;
            EXPECT_EQ(outcome.torn, 0U) << calls;
            EXPECT_EQ(leftovers_, 0U) << calls;
            if (complete) break;
            ASSERT_LT(calls, 50);
        }
    }

    std::unique_ptr<TestProgram> test_;
    std::size_t leftovers_ = 0;
};

}  // namespace quillo
