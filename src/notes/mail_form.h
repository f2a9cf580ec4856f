#pragma once

#include "platform/window.h"
#include "ports/mail_session.h"
#include "util/busy_flag.h"

namespace quillo {

class LocaleText;

/// A hidden window for one sending: it signs on to the user's mail program by Simple MAPI, and owns whatever that
/// program shows. Its messages run meanwhile.
class MailForm : public Window, public MailSession {
  public:
    /// `dialogs` is set as long as the form lasts: the mail program's windows are modal.
    MailForm(LocaleText& locale, BusyFlag& dialogs);
    MailForm(const MailForm&) = delete;
    MailForm& operator=(const MailForm&) = delete;
    ~MailForm() override;

    /// Makes the window; `library` is the system's mail interface. False when the system lacks it.
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

    /// The path in the code page, by its short name where the long one does not fit into it.
    [[nodiscard]] std::string NarrowPath(const std::u16string& path) const;
    [[nodiscard]] ULONG_PTR Owner() const { return reinterpret_cast<ULONG_PTR>(Handle()); }

    LocaleText& locale_;
    BusyFlag::Scope busy_;
    std::unique_ptr<Interface> mapi_;
    ULONG_PTR session_ = 0;
};

/// The mail interface of the system, loaded at the first sending.
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
