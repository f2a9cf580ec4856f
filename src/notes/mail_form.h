#pragma once

#include "platform/window.h"
#include "ports/mail_session.h"
#include "util/busy_flag.h"

namespace quillo {

class LocaleText;

/// A hidden window for one message: it signs on to the user's mail program with Simple MAPI, and owns every window that
/// this program shows. Messages are pumped meanwhile.
class MailForm : public Window, public MailSession {
  public:
    /// `dialogs` is set for the life of the form: the mail program's windows are modal.
    MailForm(LocaleText& locale, BusyFlag& dialogs);
    MailForm(const MailForm&) = delete;
    MailForm& operator=(const MailForm&) = delete;
    ~MailForm() override;

    /// Creates the window; `library` is the system's mail interface. False if the system lacks it.
    [[nodiscard]] bool Load(const wchar_t* library);

    // MailSession
    [[nodiscard]] MailSignOn SignOn() override;
    void Send(const MailMessage& message) override;
    void SignOff() override;

  protected:
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
        return Default(message, wParam, lParam);
    }

  private:
    struct Interface;

    /// The path in the code page; its short form if the code page cannot hold the long one.
    [[nodiscard]] std::string NarrowPath(const std::u16string& path) const;
    [[nodiscard]] ULONG_PTR Owner() const { return reinterpret_cast<ULONG_PTR>(Handle()); }

    LocaleText& locale_;
    BusyFlag::Scope busy_;
    std::unique_ptr<Interface> mapi_;
    ULONG_PTR session_ = 0;
};

/// The system's mail interface, loaded for the first message.
class MapiMail : public MailSystem {
  public:
    MapiMail(LocaleText& locale, BusyFlag& dialogs, const wchar_t* library = L"mapi32.dll")
        : locale_(locale), dialogs_(dialogs), library_(library) {}
    [[nodiscard]] std::unique_ptr<MailSession> NewSession() override;

  private:
    LocaleText& locale_;
    BusyFlag& dialogs_;
    const wchar_t* library_;
};

}  // namespace quillo
