#pragma once

#include <cstddef>
#include <memory>
#include <string>

namespace quillo {

/// A new message with one attached file. Its texts are narrow, in the ANSI code page, as the mail system takes them.
struct MailMessage {
    std::string subject;
    std::string body;
    std::size_t attachmentPosition = 0;  ///< index in the body at which the attachment appears
    std::string attachmentName;
    std::u16string attachmentPath;
};

enum class MailSignOn {
    Done,
    Canceled,  ///< by the user
    Failed,
};

/// A session with the user's mail program. Signing on and sending may show windows of that program and pump messages.
class MailSession {
  public:
    /// Signs off.
    virtual ~MailSession() = default;

    [[nodiscard]] virtual MailSignOn SignOn() = 0;
    /// Opens the mail program's message window and returns when the user has sent or discarded the message. The mail
    /// program reports errors itself.
    virtual void Send(const MailMessage& message) = 0;
    virtual void SignOff() = 0;
};

/// Access to the user's mail program.
class MailSystem {
  public:
    virtual ~MailSystem() = default;
    /// A session for one message; null if the system has no mail interface.
    [[nodiscard]] virtual std::unique_ptr<MailSession> NewSession() = 0;
};

}  // namespace quillo
