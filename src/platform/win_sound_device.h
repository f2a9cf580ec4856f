#pragma once

#include "ports/sound_device.h"

namespace quillo {

/// The system's multimedia library, loaded at the first sound.
class WinSoundDevice : public SoundDevice {
  public:
    int SendCommand(std::u16string_view command) override;
    void PlayWave(std::u16string_view path, unsigned flags) override;
};

}  // namespace quillo
