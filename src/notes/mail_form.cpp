#include "notes/mail_form.h"

#include "platform/late_library.h"
#include "platform/styled_controls.h"
#include "platform/wide.h"
#include "ports/locale_text.h"
#include "util/ignore.h"

// After windows.h.
#include <mapi.h>

namespace quillo {

struct MailForm::Interface {
    explicit Interface(const wchar_t* library)
        : logon(library, "MAPILogon"), sendMail(library, "MAPISendMail"), logoff(library, "MAPILogoff") {}

    LateFunction<MAPILOGON> logon;
    LateFunction<MAPISENDMAIL> sendMail;
    LateFunction<MAPILOGOFF> logoff;
};

MailForm::MailForm(LocaleText& locale, BusyFlag& dialogs) : locale_(locale), busy_(dialogs) {}

MailForm::~MailForm() {
    Destroy();
}

bool MailForm::Load(const wchar_t* library) {
    const StyledControls styled;  // the mail program's library may bring windows of its own
    mapi_ = std::make_unique<Interface>(library);
    if (mapi_->logon.Get() == nullptr || mapi_->sendMail.Get() == nullptr || mapi_->logoff.Get() == nullptr) {
        return false;
    }
    WindowPlan plan;
    plan.className = L"QuilloMail";
    plan.title = L"QuilloMail";
    plan.style = WS_POPUP;
    return Create(plan);
}

MailSignOn MailForm::SignOn() {
    const StyledControls styled;
    LHANDLE session = 0;
    const ULONG result = mapi_->logon.Get()(Owner(), nullptr, nullptr, MAPI_LOGON_UI, 0, &session);
    session_ = session;
    if (result == SUCCESS_SUCCESS) return MailSignOn::Done;
    return result == MAPI_USER_ABORT ? MailSignOn::Canceled : MailSignOn::Failed;
}

void MailForm::Send(const MailMessage& message) {
    const StyledControls styled;
    // The records need pointers to writable text.
    std::string subject = message.subject;
    std::string body = message.body;
    std::string name = message.attachmentName;
    std::string path = NarrowPath(message.attachmentPath);
    MapiFileDesc file{};
    file.nPosition = static_cast<ULONG>(message.attachmentPosition);
    file.lpszPathName = path.data();
    file.lpszFileName = name.data();
    MapiMessage record{};
    record.lpszSubject = subject.data();
    record.lpszNoteText = body.data();
    record.nFileCount = 1;
    record.lpFiles = &file;
    Ignore(mapi_->sendMail.Get()(session_, Owner(), &record, MAPI_DIALOG, 0),
           "the user has seen it in the mail program's own window, or has canceled there");
}

void MailForm::SignOff() {
    Ignore(mapi_->logoff.Get()(session_, Owner(), 0, 0), "the session ends with the program at the latest");
    session_ = 0;
}

std::string MailForm::NarrowPath(const std::u16string& path) const {
    std::string narrow = locale_.ToNarrow(path).value_or(std::string());
    if (locale_.FromNarrow(narrow) == path) return narrow;
    std::u16string shortPath(MAX_PATH, u'\0');
    const DWORD length = GetShortPathNameW(Wide(path), WideBuffer(shortPath), MAX_PATH);
    if (length == 0 || length >= MAX_PATH) return narrow;
    shortPath.resize(length);
    return locale_.ToNarrow(shortPath).value_or(narrow);
}

std::unique_ptr<MailSession> MapiMail::NewSession() {
    auto form = std::make_unique<MailForm>(locale_, dialogs_);
    if (!form->Load(library_)) return nullptr;
    return form;
}

}  // namespace quillo
