#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>

#include "app/base/registry_keys.h"
#include "test_program.h"

namespace quillo {
namespace {

/// A process without windows of its own.
class QuietStage : public StartupStage {
  public:
    [[nodiscard]] bool AnotherInstanceRuns() override { return false; }
    void SendToRunningInstance(std::u16string_view /*commandLine*/) override {}
    void InitializeShell() override {}
    void RegisterLinkFormat() override {}
    [[nodiscard]] OsFacts ReadOsFacts() override { return MakeOsFacts(2, 10, 0); }
    void LoadNotifyWindow() override {}
    void LoadMainForm() override {}
};

/// Starts of a program whose old store has two notes.
class LegacyKillTest : public testing::Test {
  protected:
    void Fresh() {
        test_ = std::make_unique<TestProgram>();
        test_->registry.Put(kUserKey, u"Shown Help", -1);
        test_->registry.Put(kUserKey, u"Notes", 2);
        test_->registry.Put(kUserKey, u"Note 1", u"same");
        test_->registry.Put(kUserKey, u"Note 2", u"same");
        test_->registry.Put(kUserKey, u"Note size 2", u"300,300,3000,3000,0");
    }
    void Start() {
        QuietStage stage;
        EXPECT_EQ(test_->MakeStartup(stage).Run(u""), StartupOutcome::Running);
    }
    /// The program was killed: only the disk and the registry are left.
    void Restart() {
        auto next = std::make_unique<TestProgram>();
        next->files = test_->files;
        next->files.Revive();
        next->registry = std::move(test_->registry);
        next->registry.Revive();
        next->shell.ContinueIdentifiers(test_->shell);
        test_ = std::move(next);
        Start();
    }
    [[nodiscard]] std::multiset<std::u16string> Texts() {
        std::multiset<std::u16string> texts;
        test_->program.openNotes.ForEach([&](const OpenNote& note) { texts.insert(note.Text()); });
        return texts;
    }
    const std::multiset<std::u16string> both_{u"same", u"same"};

    std::unique_ptr<TestProgram> test_;
};

TEST_F(LegacyKillTest, AStartMovesTheNotesIntoFilesAtOnce) {
    Fresh();
    Start();
    EXPECT_EQ(Texts(), both_);
    EXPECT_EQ(test_->StoredFiles().size(), 2U);
    EXPECT_EQ(test_->registry.ValueCount(kUserKey), 1U) << "the help was shown";
}

TEST_F(LegacyKillTest, NoKillWhileTheFilesAreWrittenLosesOrDoublesANote) {
    for (int calls = 0; calls < 12; ++calls) {
        Fresh();
        test_->files.CutPowerAfter(calls);
        test_->registry.FailAfter(0);
        Start();
        for (int start = 0; start < 2; ++start) {
            Restart();
            EXPECT_EQ(Texts(), both_) << calls;
            EXPECT_EQ(test_->StoredFiles().size(), 2U) << calls;
        }
    }
}

TEST_F(LegacyKillTest, NoKillWhileTheStoreIsClearedLosesOrDoublesANote) {
    for (int changes = 0; changes < 8; ++changes) {
        Fresh();
        test_->registry.FailAfter(changes);
        Start();
        ASSERT_EQ(test_->StoredFiles().size(), 2U);
        // Both are changed before the kill.
        ASSERT_TRUE(test_->views.Note(0).SetText(u"changed"));
        test_->views.Note(0).MarkChanged();
        ASSERT_TRUE(test_->views.Note(0).PersistNote());
        Restart();
        EXPECT_EQ(Texts(), (std::multiset<std::u16string>{u"changed", u"same"})) << changes;
        EXPECT_EQ(test_->StoredFiles().size(), 2U) << changes;
        test_->saveAll.Run();
        EXPECT_FALSE(test_->registry.HasValue(kUserKey, u"Notes")) << changes;
    }
}

TEST_F(LegacyKillTest, ANewStoreWithOtherNotesIsImportedBesideTheOldOnes) {
    Fresh();
    Start();
    test_->registry.Put(kUserKey, u"Notes", 1);
    test_->registry.Put(kUserKey, u"Note 1", u"other");
    Restart();
    EXPECT_EQ(Texts(), (std::multiset<std::u16string>{u"other", u"same", u"same"}));
}

}  // namespace
}  // namespace quillo
