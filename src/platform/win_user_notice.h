#pragma once

#include "platform/ui_timer.h"
#include "platform/win32.h"
#include "platform/window.h"
#include "ports/user_notice.h"

namespace quillo {

/// Message boxes, balloons and the system's sounds.
class WinUserNotice : public UserNotice {
  public:
    void Fail(std::u16string_view text) override;
    void Inform(std::u16string_view text) override;
    void Warn(std::u16string_view text) override;
    [[nodiscard]] bool Ask(std::u16string_view text, Question question) override;
    void Balloon(std::u16string_view title, std::u16string_view text, BalloonIcon icon) override;
    void Play(SystemSound sound) override;

  private:
    /// An icon in the notification area that stands only as long as its balloon.
    class BalloonWindow : public Window {
      public:
        ~BalloonWindow() override { Destroy(); }
        void Show(std::u16string_view title, std::u16string_view text, BalloonIcon icon);

      protected:
        LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

      private:
        void Remove();

        UiTimer timer_{[this] { Remove(); }};
        bool shown_ = false;
    };

    BalloonWindow balloon_;
};

}  // namespace quillo
