#include "app/base/sound_choice.h"

#include <string>

#include "ports/sound_device.h"
#include "util/ignore.h"
#include "util/text.h"

namespace quillo {
namespace {

// The wave player's flags.
constexpr unsigned kStop = 4;
constexpr unsigned kAsync = 1;
constexpr unsigned kNoDefault = 2;
constexpr unsigned kDoNotStop = 16;

}  // namespace

void PlayReminderSound(std::u16string_view path, SoundDevice& device) {
    const std::u16string_view file = Trim(path);
    if (file.empty()) return;
    constexpr std::size_t kEnding = 3;
    const bool wave = file.size() >= kEnding && EqualsIgnoringAsciiCase(file.substr(file.size() - kEnding), u"wav");
    if (wave) {
        PlayWaveSound(file, device);
    } else {
        PlayThroughMediaControl(file, device);
    }
}

void StopReminderSound(SoundDevice& device) {
    StopSound(device);
    device.PlayWave({}, kStop);
}

void PlayThroughMediaControl(std::u16string_view path, SoundDevice& device) {
    StopSound(device);
    std::u16string open = u"open \"";
    open += path;
    open += u"\" alias quillo";
    if (device.SendCommand(open) == 0) {
        Ignore(device.SendCommand(u"play quillo from 0"), "a file that opens and does not play is silence");
    }
}

void StopSound(SoundDevice& device) {
    Ignore(device.SendCommand(u"stop quillo"), "fails when nothing is open, which is what is wanted");
    Ignore(device.SendCommand(u"close quillo"), "the same");
}

void PlayWaveSound(std::u16string_view path, SoundDevice& device) {
    device.PlayWave({}, kStop);
    device.PlayWave(path, kAsync | kNoDefault | kDoNotStop);
}

}  // namespace quillo
