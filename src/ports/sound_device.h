#pragma once

#include <string_view>

namespace quillo {

/// The system's two ways of playing a sound.
class SoundDevice {
  public:
    virtual ~SoundDevice() = default;

    /// One command to the media control interface; 0 is success. Returns at once.
    virtual int SendCommand(std::u16string_view command) = 0;
    /// The simple wave player; `flags` are those of the system call. An empty path stops the sound that is playing.
    virtual void PlayWave(std::u16string_view path, unsigned flags) = 0;
};

}  // namespace quillo
