#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "ports/mail_session.h"

namespace quillo {

/// A mail system whose user sends every message. It keeps the messages and the order of the calls.
class RecordingMail : public MailSystem {
  public:
    [[nodiscard]] std::unique_ptr<MailSession> NewSession() override;

    bool isMissing = false;
    MailSignOn signsOn = MailSignOn::Done;
    std::function<void(const MailMessage&)> whileSending;  ///< called while the message window is open
    std::function<void()> whileSigningOff;                 ///< called while the session ends
    std::vector<MailMessage> sent;
    std::vector<std::string> calls;  ///< "sign on", "send", "sign off", "close"
};

}  // namespace quillo
