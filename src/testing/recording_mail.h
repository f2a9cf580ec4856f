#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "ports/mail_session.h"

namespace quillo {

/// A mail system whose user sends everything. It keeps what was sent and the order of what was asked of it.
class RecordingMail : public MailSystem {
  public:
    [[nodiscard]] std::unique_ptr<MailSession> NewSession() override;

    bool isMissing = false;
    MailSignOn signsOn = MailSignOn::Done;
    std::function<void(const MailMessage&)> whileSending;  ///< what happens while the message window is open
    std::function<void()> whileSigningOff;                 ///< what happens while the session ends
    std::vector<MailMessage> sent;
    std::vector<std::string> calls;  ///< "sign on", "send", "sign off", "close"
};

}  // namespace quillo
