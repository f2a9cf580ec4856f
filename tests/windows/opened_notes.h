#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "app/legacy_import.h"
#include "app/note_opening.h"
#include "app/program.h"
#include "app/save_all.h"
#include "note_fixture.h"

namespace quillo::windows_tests {

/// Opens real notes from a temporary folder in the same way as a start.
class OpenedNotes : private NoteWindowFactory {
  public:
    /// Writes the files of that many notes.
    explicit OpenedNotes(int notes) {
        program.notesFolder = world.folder.Path();
        for (int i = 0; i < notes; ++i) Write(i);
    }
    OpenedNotes(const OpenedNotes&) = delete;
    OpenedNotes& operator=(const OpenedNotes&) = delete;
    ~OpenedNotes() { program.openNotes.UnloadAll(); }

    void Open() {
        const NoteBatch::Scope batch(world.batch);
        program.startingUp = program.loadingNotes = true;
        for (const FileEntry& file : world.files.List(program.notesFolder, kNoteExtension)) {
            EXPECT_EQ(opening_.OpenNoteFile(file.path, OpenMode::AtStart), OpenOutcome::Done);
        }
        program.startingUp = program.loadingNotes = false;
    }

    /// Waits for the parts that the notes create after their first painting.
    [[nodiscard]] bool Settle() {
        return PumpUntil([this] {
            return std::all_of(forms_.begin(), forms_.end(), [](const NoteForm* form) {
                return GetDlgItem(form->Handle(), ChildId::kCloseButton) != nullptr;
            });
        });
    }

    NoteWorldForTests world;
    Program program{*this};

  private:
    [[nodiscard]] std::unique_ptr<NoteWindow> MakeWindow(OpenNote& note,
                                                         const std::optional<NotePosition>& position) override {
        auto form = std::make_unique<NoteForm>(note, world.FormServices());
        if (!form->Create(position)) return nullptr;
        forms_.push_back(form.get());
        return form;
    }
    void Write(int index) {
        const std::string number = std::to_string(index);
        const std::u16string path =
            world.folder.Path() + u"\\" + std::u16string(number.begin(), number.end()) + u".qln";
        EXPECT_EQ(world.files.Create(path, "note " + number + "\r\n<quillo><position>1500," + number +
                                               "500,2820,2445</position><appearance>False,False,0,0,0,0</appearance>"
                                               "<nodelete></nodelete></quillo>"),
                  FileError::None);
    }

    std::vector<const NoteForm*> forms_;
    LegacyNotes legacy_{world.registry, program.openNotes, world.random};
    SaveAll saveAll_{program.openNotes, legacy_, world.store};
    NoteOpening opening_{program, world.Services(), world.random, saveAll_};
};

}  // namespace quillo::windows_tests
