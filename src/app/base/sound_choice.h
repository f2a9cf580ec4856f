#pragma once

#include <string_view>

namespace quillo {

class SoundDevice;

/// Plays the sound of a reminder: a path that ends in "wav" (any letter case) through the simple wave player, any other
/// through the media control interface. A blank path is silence; so is a file that cannot be played.
void PlayReminderSound(std::u16string_view path, SoundDevice& device);

/// Stops the sound of a reminder, whichever player plays it.
void StopReminderSound(SoundDevice& device);

/// Plays a file through the media control interface and stops the previous one; at most one plays at a time.
void PlayThroughMediaControl(std::u16string_view path, SoundDevice& device);
/// Stops the media control interface.
void StopSound(SoundDevice& device);
/// Plays a wave file through the simple wave player.
void PlayWaveSound(std::u16string_view path, SoundDevice& device);

}  // namespace quillo
