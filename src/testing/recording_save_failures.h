#pragma once

#include <set>
#include <string>
#include <vector>

#include "notes/note_saver.h"

namespace quillo {

/// Records which notes cannot be saved at the moment, and every reported error.
class RecordingSaveFailures : public SaveFailureListener {
  public:
    void NoteCannotBeSaved(const std::u16string& noteKey, FileError error) override {
        failing.insert(noteKey);
        errors.push_back(error);
    }
    void NoteIsSavedAgain(const std::u16string& noteKey) override { failing.erase(noteKey); }

    std::set<std::u16string> failing;
    std::vector<FileError> errors;
};

}  // namespace quillo
