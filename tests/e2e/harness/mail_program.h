#pragma once

#include <string>
#include <utility>
#include <vector>

#include "harness/files.h"
#include "platform/win32.h"

namespace quillo::e2e {

/// Makes the tests' own mail program the system's default for the life of the object. A program started meanwhile uses
/// it; its input can be read here.
class TestMailProgram {
  public:
    enum class SignOn { Accept, Refuse, Cancel };

    explicit TestMailProgram(SignOn answer = SignOn::Accept);
    TestMailProgram(const TestMailProgram&) = delete;
    TestMailProgram& operator=(const TestMailProgram&) = delete;
    ~TestMailProgram();

    /// "sign on", "send" and "sign off", in order.
    [[nodiscard]] std::vector<std::string> Calls() const;
    [[nodiscard]] bool HasBeenCalled(const std::string& call) const;
    [[nodiscard]] std::string Subject() const { return Recorded(L"subject"); }
    [[nodiscard]] std::string Body() const { return Recorded(L"body"); }
    /// The bytes of the attached file at the time of sending.
    [[nodiscard]] std::string Attachment() const { return Recorded(L"attachment"); }
    /// "position", "type", "name", "path" of the attachment; "flags", "files", "recipients", "session", "owner".
    [[nodiscard]] std::string Detail(const std::string& name) const;

  private:
    [[nodiscard]] std::string Recorded(const wchar_t* name) const;

    TemporaryFolder record_{L"mail record"};
    std::vector<std::pair<HKEY, std::wstring>> defaults_;  ///< the previous default program, by root key
};

}  // namespace quillo::e2e
