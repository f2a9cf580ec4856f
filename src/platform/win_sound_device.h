#pragma once

#include "ports/sound_device.h"

namespace quillo {

/// The system's multimedia library, loaded at the first sound.
class WinSoundDevice : public SoundDevice {
  public:
    WinSoundDevice() = default;
    WinSoundDevice(const WinSoundDevice&) = delete;
    WinSoundDevice& operator=(const WinSoundDevice&) = delete;
    /// Closes players that are still open: a player that runs while the process ends can crash it.
    ~WinSoundDevice() override;

    int SendCommand(std::u16string_view command) override;
    void PlayWave(std::u16string_view path, unsigned flags) override;

  private:
    bool commanded_ = false;
};

}  // namespace quillo
