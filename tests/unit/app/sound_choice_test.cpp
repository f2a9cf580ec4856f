#include "app/base/sound_choice.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ports/sound_device.h"

namespace quillo {
namespace {

/// Records its calls; `openResult` is the answer to the open command.
class RecordingSoundDevice : public SoundDevice {
  public:
    int SendCommand(std::u16string_view command) override {
        log.emplace_back(command);
        return command.substr(0, 4) == u"open" ? openResult : kNothingOpen;
    }
    void PlayWave(std::u16string_view path, unsigned flags) override {
        log.push_back(u"wave '" + std::u16string(path) + u"' " + static_cast<char16_t>(u'0' + flags / 10) +
                      static_cast<char16_t>(u'0' + flags % 10));
    }

    static constexpr int kNothingOpen = 263;
    int openResult = 0;
    std::vector<std::u16string> log;
};

using Log = std::vector<std::u16string>;

TEST(SoundChoice, BlankPathIsSilence) {
    RecordingSoundDevice device;
    PlayReminderSound(u"", device);
    PlayReminderSound(u"   ", device);
    EXPECT_TRUE(device.log.empty());
}

TEST(SoundChoice, WaveFilesUseTheWavePlayerInAnyLetterCase) {
    for (const std::u16string path : {u"C:\\a.wav", u"C:\\a.WAV", u"C:\\a.Wav"}) {
        RecordingSoundDevice device;
        PlayReminderSound(u"  " + path + u" ", device);
        EXPECT_EQ(device.log, (Log{u"wave '' 04", u"wave '" + path + u"' 19"}));
    }
}

TEST(SoundChoice, EverythingElseUsesTheMediaControlInterface) {
    for (const std::u16string path : {u"C:\\my sounds\\a.wma", u"C:\\a.mp3", u"C:\\a.mid", u"av", u"C:\\wav.txt"}) {
        RecordingSoundDevice device;
        PlayReminderSound(path, device);
        EXPECT_EQ(device.log, (Log{u"stop quillo", u"close quillo", u"open \"" + path + u"\" alias quillo",
                                   u"play quillo from 0"}));
    }
}

TEST(SoundChoice, AFileThatDoesNotOpenIsNotPlayed) {
    RecordingSoundDevice device;
    device.openResult = 277;
    PlayReminderSound(u"C:\\missing.wma", device);
    EXPECT_EQ(device.log, (Log{u"stop quillo", u"close quillo", u"open \"C:\\missing.wma\" alias quillo"}));
}

TEST(SoundChoice, ASecondSoundStopsTheFirst) {
    RecordingSoundDevice device;
    PlayReminderSound(u"a.mp3", device);
    device.log.clear();
    PlayReminderSound(u"b.mp3", device);
    ASSERT_GE(device.log.size(), 2U);
    EXPECT_EQ(device.log[0], u"stop quillo");
    EXPECT_EQ(device.log[1], u"close quillo");
}

TEST(SoundChoice, ThreeLettersAreEnoughForAWave) {
    RecordingSoundDevice device;
    PlayReminderSound(u"WAV", device);
    EXPECT_EQ(device.log, (Log{u"wave '' 04", u"wave 'WAV' 19"}));
}

TEST(SoundChoice, StoppingEndsBothWays) {
    RecordingSoundDevice device;
    StopReminderSound(device);
    EXPECT_EQ(device.log, (Log{u"stop quillo", u"close quillo", u"wave '' 04"}));
}

}  // namespace
}  // namespace quillo
