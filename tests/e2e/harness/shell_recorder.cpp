#include "harness/shell_recorder.h"

#include <algorithm>
#include <array>
#include <utility>

#include "harness/files.h"
#include "platform/unique_handle.h"

// After windows.h.
#include <shlobj.h>
#include <shlwapi.h>

namespace quillo::e2e {
namespace {

constexpr wchar_t kClasses[] = L"Software\\Classes\\";
constexpr wchar_t kOwnClass[] = L"QuilloTestRecorder";

bool KeyExists(HKEY root, const std::wstring& path) {
    HKEY key = nullptr;
    const bool exists = RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, &key) == ERROR_SUCCESS;
    const RegistryKeyHandle owned(key);
    return exists;
}

std::optional<std::wstring> DefaultValue(HKEY root, const std::wstring& key) {
    if (!KeyExists(root, key)) return std::nullopt;
    std::array<wchar_t, 2048> text{};
    DWORD size = sizeof text;
    constexpr DWORD kRaw = RRF_RT_REG_SZ | RRF_RT_REG_EXPAND_SZ | RRF_NOEXPAND;
    RegGetValueW(root, key.c_str(), nullptr, kRaw, nullptr, text.data(), &size);
    return text.data();
}

void SetDefaultValue(HKEY root, const std::wstring& key, const std::wstring& text) {
    const auto size = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
    RegSetKeyValueW(root, key.c_str(), nullptr, REG_SZ, text.c_str(), size);
}

void TellTheShell() {
    SHChangeNotify(SHCNE_ASSOCCHANGED, SHCNF_IDLIST | SHCNF_FLUSH, nullptr, nullptr);
}

}  // namespace

ShellRecorder::ShellRecorder(std::wstring kind, const std::wstring& folder)
    : kind_(std::move(kind)), file_(folder + L"\\opened.txt") {
    command_ = L"cmd.exe /c echo %1>\"" + file_ + L"\"";
    Register(HKEY_CURRENT_USER);
    if (IsInCharge()) return;
    // Some systems do not use the user's own classes.
    PutBack();
    Register(HKEY_LOCAL_MACHINE);
}

/// The class that the user has chosen for the kind; "" if there is none.
std::wstring ShellRecorder::ChosenClass() const {
    const std::wstring shell = L"Software\\Microsoft\\Windows\\";
    std::array<wchar_t, 256> name{};
    for (const wchar_t* kinds : {L"Shell\\Associations\\UrlAssociations\\", L"CurrentVersion\\Explorer\\FileExts\\"}) {
        DWORD size = sizeof name;
        const std::wstring key = shell + kinds + kind_ + L"\\UserChoice";
        if (RegGetValueW(HKEY_CURRENT_USER, key.c_str(), L"ProgId", RRF_RT_REG_SZ, nullptr, name.data(), &size) ==
            ERROR_SUCCESS) {
            return name.data();
        }
    }
    return {};
}

void ShellRecorder::Register(HKEY root) {
    root_ = root;
    // A choice cannot be changed, but the action of the chosen class can.
    std::wstring openedBy = ChosenClass();
    if (openedBy.empty()) {
        const bool isScheme = kind_.front() != L'.';
        openedBy = isScheme ? kind_ : kOwnClass;
        if (isScheme) {
            Replace(kClasses + kind_, L"");
            RegSetKeyValueW(root_, (kClasses + kind_).c_str(), L"URL Protocol", REG_SZ, L"", sizeof(wchar_t));
        } else {
            Replace(kClasses + kind_, kOwnClass);
        }
    }
    Replace(kClasses + openedBy + L"\\shell\\open\\command", command_);
    TellTheShell();
}

void ShellRecorder::Replace(const std::wstring& key, const std::wstring& text) {
    // The first parent key that does not exist yet is later deleted as a whole.
    for (std::size_t end = std::wstring(kClasses).size();;) {
        end = key.find(L'\\', end + 1);
        const std::wstring part = key.substr(0, end);
        if (KeyExists(root_, part) && end != std::wstring::npos) continue;
        replaced_.push_back(Replaced{part, DefaultValue(root_, part)});
        break;
    }
    SetDefaultValue(root_, key, text);
}

void ShellRecorder::PutBack() {
    for (; !replaced_.empty(); replaced_.pop_back()) {
        const Replaced& last = replaced_.back();
        if (last.text) {
            SetDefaultValue(root_, last.key, *last.text);
        } else {
            SHDeleteKeyW(root_, last.key.c_str());
        }
    }
    if (root_ != nullptr) TellTheShell();
    root_ = nullptr;
}

bool ShellRecorder::IsInCharge() const {
    std::array<wchar_t, 1024> command{};
    auto size = static_cast<DWORD>(command.size());
    return SUCCEEDED(AssocQueryStringW(ASSOCF_NONE, ASSOCSTR_COMMAND, kind_.c_str(), L"open", command.data(), &size)) &&
           command_ == command.data();
}

std::string ShellRecorder::Opened() const {
    if (!FileExists(file_)) return {};
    const std::string text = ReadBytes(file_);
    // A command line, possibly in quotation marks.
    const std::size_t first = text.find_first_not_of('"');
    const std::size_t last = text.find_last_not_of("\r\n \"");
    if (first == std::string::npos || last == std::string::npos) return {};
    return text.substr(first, last + 1 - first);
}

void ShellRecorder::DropRecord() const {
    DeleteFileW(file_.c_str());
}

}  // namespace quillo::e2e
