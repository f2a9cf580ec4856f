#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "ports/user_notice.h"

namespace quillo {

/// A user who reads everything and gives one answer to every question.
class FakeUserNotice : public UserNotice {
  public:
    struct AskedQuestion {
        std::u16string text;
        Question question = Question::YesNoDefaultNo;
    };
    struct ShownBalloon {
        std::u16string title;
        std::u16string text;
        BalloonIcon icon = BalloonIcon::None;
    };

    void Fail(std::u16string_view text) override { fails.emplace_back(text); }
    void Inform(std::u16string_view text) override { informs.emplace_back(text); }
    void Warn(std::u16string_view text) override {
        warnings.emplace_back(text);
        if (onWarn) onWarn();
    }
    void WarnOfChoice(std::u16string_view text) override {
        choiceWarnings.emplace_back(text);
        if (onWarnOfChoice) onWarnOfChoice();
    }
    [[nodiscard]] bool Ask(std::u16string_view text, Question question) override {
        questions.push_back({std::u16string(text), question});
        if (onAsk) onAsk();
        return answer;
    }
    void Balloon(std::u16string_view title, std::u16string_view text, BalloonIcon icon) override {
        balloons.push_back({std::u16string(title), std::u16string(text), icon});
    }
    void Play(SystemSound sound) override { sounds.push_back(sound); }

    /// Clears what was shown and played; keeps the answer.
    void Clear() {
        fails.clear();
        informs.clear();
        warnings.clear();
        choiceWarnings.clear();
        questions.clear();
        balloons.clear();
        sounds.clear();
    }

    std::vector<std::u16string> fails;
    std::vector<std::u16string> informs;
    std::vector<std::u16string> warnings;
    std::vector<std::u16string> choiceWarnings;
    std::vector<AskedQuestion> questions;
    std::vector<ShownBalloon> balloons;
    std::vector<SystemSound> sounds;
    bool answer = true;
    // Called while the box is open.
    std::function<void()> onAsk;
    std::function<void()> onWarn;
    std::function<void()> onWarnOfChoice;
};

}  // namespace quillo
