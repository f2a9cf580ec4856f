#include "harness/mail_program.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <sstream>

namespace quillo::e2e {
namespace {

constexpr wchar_t kMailClients[] = L"Software\\Clients\\Mail";
constexpr wchar_t kProgram[] = L"Quillo's tests";
constexpr wchar_t kProgramKey[] = L"Software\\Clients\\Mail\\Quillo's tests";

std::wstring ProviderPath() {
    std::array<wchar_t, 1024> self{};
    GetModuleFileNameW(nullptr, self.data(), static_cast<DWORD>(self.size()));
    return (std::filesystem::path(self.data()).parent_path() / L"quillo_mail_provider.dll").wstring();
}

/// An empty text also means no value.
std::wstring DefaultText(HKEY root) {
    std::array<wchar_t, 512> text{};
    DWORD size = sizeof text;
    RegGetValueW(root, kMailClients, nullptr, RRF_RT_REG_SZ, nullptr, text.data(), &size);
    return text.data();
}

bool SetText(HKEY root, const wchar_t* key, const wchar_t* name, const std::wstring& text) {
    const auto size = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
    return RegSetKeyValueW(root, key, name, REG_SZ, text.c_str(), size) == ERROR_SUCCESS;
}

}  // namespace

TestMailProgram::TestMailProgram(SignOn answer) {
    EXPECT_TRUE(FileExists(ProviderPath())) << "build the target quillo_mail_provider";
    const wchar_t* signOn = answer == SignOn::Refuse ? L"refuse" : answer == SignOn::Cancel ? L"cancel" : nullptr;
    SetEnvironmentVariableW(L"QUILLO_MAIL_RECORD", record_.Path().c_str());
    SetEnvironmentVariableW(L"QUILLO_MAIL_SIGN_ON", signOn);
    // The user's choice has priority if the system checks it; only an administrator can change the machine's.
    for (HKEY root : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE}) {
        const std::wstring before = DefaultText(root);
        if (SetText(root, kProgramKey, L"DLLPath", ProviderPath()) && SetText(root, kMailClients, nullptr, kProgram)) {
            defaults_.emplace_back(root, before);
        }
    }
    EXPECT_FALSE(defaults_.empty());
}

TestMailProgram::~TestMailProgram() {
    for (const auto& [root, before] : defaults_) {
        SetText(root, kMailClients, nullptr, before);
        RegDeleteTreeW(root, kProgramKey);
    }
    SetEnvironmentVariableW(L"QUILLO_MAIL_RECORD", nullptr);
    SetEnvironmentVariableW(L"QUILLO_MAIL_SIGN_ON", nullptr);
}

std::vector<std::string> TestMailProgram::Calls() const {
    std::vector<std::string> calls;
    std::istringstream lines(Recorded(L"calls"));
    for (std::string line; std::getline(lines, line);) calls.push_back(line);
    return calls;
}

bool TestMailProgram::HasBeenCalled(const std::string& call) const {
    const std::vector<std::string> calls = Calls();
    return std::find(calls.begin(), calls.end(), call) != calls.end();
}

std::string TestMailProgram::Detail(const std::string& name) const {
    std::istringstream lines(Recorded(L"details"));
    for (std::string line; std::getline(lines, line);) {
        if (line.rfind(name + "=", 0) == 0) return line.substr(name.size() + 1);
    }
    return "(none)";
}

std::string TestMailProgram::Recorded(const wchar_t* name) const {
    return FileExists(record_ / name) ? ReadBytes(record_ / name) : std::string();
}

}  // namespace quillo::e2e
