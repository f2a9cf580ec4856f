#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ports/sound_device.h"

namespace quillo {

/// Plays nothing and records its calls.
class FakeSoundDevice : public SoundDevice {
  public:
    int SendCommand(std::u16string_view command) override {
        commands.emplace_back(command);
        return 0;
    }
    void PlayWave(std::u16string_view path, unsigned /*flags*/) override { waves.emplace_back(path); }

    std::vector<std::u16string> commands;
    std::vector<std::u16string> waves;  ///< an empty path stops the sound that is playing
};

}  // namespace quillo
