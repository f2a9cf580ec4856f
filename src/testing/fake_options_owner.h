#pragma once

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "mainmenu/options_controller.h"
#include "util/numbers.h"

namespace quillo {

/// A main form that stores shortcuts and records the calls, in order: "shortcut 1 C:\a.exe", "hotkeys", "redraw".
class FakeOptionsOwner : public OptionsOwner {
  public:
    explicit FakeOptionsOwner(Settings& settings) : settings_(settings) {}

    void SetShortcut(int index, std::u16string_view path) override {
        settings_.shortcuts.at(static_cast<std::size_t>(index) - 1) = path;
        calls.push_back(u"shortcut " + FormatInteger(index) + u" " + std::u16string(path));
    }
    void RegisterHotKeys() override {
        calls.emplace_back(u"hotkeys");
        if (onHotKeys) onHotKeys();
    }
    [[nodiscard]] std::array<int, 2> TakenHotKeys() const override { return takenHotKeys; }
    void RedrawResources() override {
        calls.emplace_back(u"redraw");
        if (onRedraw) onRedraw();
    }

    std::vector<std::u16string> calls;
    std::array<int, 2> takenHotKeys{};  ///< other programs have them
    std::function<void()> onHotKeys;    ///< called at that moment
    std::function<void()> onRedraw;

  private:
    Settings& settings_;
};

}  // namespace quillo
