#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "mainmenu/options_controller.h"
#include "util/numbers.h"

namespace quillo {

/// A main form that stores shortcuts and remembers what it was asked, in order: "shortcut 1 C:\a.exe", "hotkeys",
/// "redraw".
class FakeOptionsOwner : public OptionsOwner {
  public:
    explicit FakeOptionsOwner(Settings& settings) : settings_(settings) {}

    void SetShortcut(int index, std::u16string_view path) override {
        settings_.shortcuts.at(static_cast<std::size_t>(index) - 1) = path;
        calls.push_back(u"shortcut " + FormatInteger(index) + u" " + std::u16string(path));
    }
    void RegisterHotKeys() override { calls.emplace_back(u"hotkeys"); }
    void RedrawResources() override { calls.emplace_back(u"redraw"); }

    std::vector<std::u16string> calls;

  private:
    Settings& settings_;
};

}  // namespace quillo
