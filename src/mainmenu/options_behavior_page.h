#pragma once

#include <string>

#include "mainmenu/content_panel.h"

namespace quillo {

class UserNotice;

/// The page for the behavior of notes: creating, closing, deleting, balloons, files, reminders, starting with Windows.
class OptionsBehaviorPage : public ContentPanel {
  public:
    OptionsBehaviorPage(OptionsController& controller, BusyFlag& dialogs, UserNotice& notice)
        : ContentPanel(OptionsPage::Behavior, controller, dialogs), notice_(notice) {}

    [[nodiscard]] std::u16string NoteFolder() const;
    [[nodiscard]] std::u16string ReminderSound() const;

  protected:
    void Place(PageColumn& column) override;
    void OnCommand(OptionControl control, int notification) override;

  private:
    void OnStartupChecked();
    void BrowseForFolder();
    void BrowseForSound();
    void EnablePlay() const;

    UserNotice& notice_;
};

}  // namespace quillo
