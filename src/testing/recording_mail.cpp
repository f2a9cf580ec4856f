#include "testing/recording_mail.h"

namespace quillo {

namespace {

class RecordingSession : public MailSession {
  public:
    explicit RecordingSession(RecordingMail& mail) : mail_(mail) {}
    ~RecordingSession() override { mail_.calls.emplace_back("close"); }

    [[nodiscard]] MailSignOn SignOn() override {
        mail_.calls.emplace_back("sign on");
        return mail_.signsOn;
    }
    void Send(const MailMessage& message) override {
        mail_.calls.emplace_back("send");
        mail_.sent.push_back(message);
        if (mail_.whileSending) mail_.whileSending(message);
    }
    void SignOff() override {
        mail_.calls.emplace_back("sign off");
        if (mail_.whileSigningOff) mail_.whileSigningOff();
    }

  private:
    RecordingMail& mail_;
};

}  // namespace

std::unique_ptr<MailSession> RecordingMail::NewSession() {
    if (isMissing) return nullptr;
    return std::make_unique<RecordingSession>(*this);
}

}  // namespace quillo
