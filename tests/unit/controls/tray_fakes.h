#pragma once

#include <string>
#include <vector>

#include "controls/tray_rules.h"
#include "ports/locale_text.h"

namespace quillo {

/// A double-byte code page: ASCII takes one byte, every other character two, of which the second may look like ASCII,
/// as in real ones. Only the conversion to narrow text is used.
class DoubleByteText : public LocaleText {
  public:
    std::optional<std::string> ToNarrow(std::u16string_view text) override {
        std::string bytes;
        for (std::size_t i = 0; i < text.size(); ++i) {
            if (text[i] < 0x80) {
                bytes += static_cast<char>(text[i]);
                continue;
            }
            bytes +=
                "\x83"
                "A";
            if (text[i] >= 0xD800 && text[i] <= 0xDBFF && i + 1 < text.size()) ++i;
        }
        return bytes;
    }
    std::u16string FromNarrow(std::string_view bytes) override { return {bytes.begin(), bytes.end()}; }
    bool HasSingleByteCodePage() override { return true; }
    std::u16string ToLower(std::u16string_view text) override { return std::u16string(text); }
    std::u16string DecimalSeparator() override { return u"."; }
    std::optional<double> ParseNumber(std::u16string_view) override { return std::nullopt; }
    std::optional<DaySerial> ParseDate(std::u16string_view) override { return std::nullopt; }
    std::u16string ShortDate(DaySerial) override { return {}; }
    std::u16string LongTime(DaySerial) override { return {}; }
    std::u16string GeneralDate(DaySerial) override { return {}; }
};

/// A notification area that treats one icon as the system does, and records the calls.
class FakeTray : public TrayShell {
  public:
    struct Call {
        TrayCommand command;
        TrayRecord record;
        bool accepted;
    };

    static constexpr TrayHandle kWindow = 0x00ABCDEF;

    TrayHandle CallbackWindow() override {
        ++windowsAskedFor;
        return kWindow;
    }
    bool Notify(TrayCommand command, const TrayRecord& record) override {
        const bool known = iconStands && record.window == kWindow;
        bool accepted = ready && known;
        if (command == TrayCommand::Add) {
            accepted = ready && !iconStands && record.window == kWindow;
            if (accepted) iconStands = true;
        } else if (command == TrayCommand::Delete && accepted) {
            iconStands = false;
        }
        calls.push_back({command, record, accepted});
        return accepted;
    }
    // A timer's interval is 0 while it is off or inactive.
    void StartBalloonTimer(std::uint32_t milliseconds) override { balloonTimer = milliseconds; }
    void StopBalloonTimer() override { balloonTimer = 0; }
    void EnableRetryTimer(bool enabled) override { retryTimer = enabled; }

    [[nodiscard]] std::vector<TrayCommand> Commands() const {
        std::vector<TrayCommand> commands;
        for (const Call& call : calls) commands.push_back(call.command);
        return commands;
    }

    bool ready = true;  ///< false: there is no task bar yet
    bool iconStands = false;
    std::vector<Call> calls;
    std::uint32_t balloonTimer = 0;
    bool retryTimer = false;
    int windowsAskedFor = 0;
};

}  // namespace quillo
