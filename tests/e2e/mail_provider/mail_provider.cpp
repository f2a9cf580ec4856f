// A mail program for the tests: a provider of Simple MAPI that records its input. Its message window is a message box:
// OK sends, Cancel discards.
//   QUILLO_MAIL_RECORD   the folder to write to: "calls" (one a line), "subject", "body", "attachment" (the bytes
//                        of the file at that moment) and "details" (lines of "name=value")
//   QUILLO_MAIL_SIGN_ON  "refuse" or "cancel": the result of signing on
#include "platform/win32.h"

// After windows.h.
#include <mapi.h>

#include <array>
#include <cstdio>
#include <string>
#include <string_view>

namespace {

constexpr LHANDLE kSession = 4711;

std::wstring Environment(const wchar_t* name) {
    std::array<wchar_t, 1024> value{};
    const DWORD length = GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size()));
    return length < value.size() ? std::wstring(value.data(), length) : std::wstring();
}

void Append(const wchar_t* name, std::string_view bytes) {
    const std::wstring path = Environment(L"QUILLO_MAIL_RECORD") + L"\\" + name;
    // The test may be reading it at this moment.
    HANDLE file = CreateFileW(path.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_ALWAYS,
                              0, nullptr);
    if (file == INVALID_HANDLE_VALUE) return;
    DWORD written = 0;
    WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    CloseHandle(file);
}

std::string BytesOf(const char* path) {
    HANDLE file = CreateFileA(path, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) return "(cannot be read)";
    std::string bytes(GetFileSize(file, nullptr), '\0');
    DWORD read = 0;
    ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr);
    CloseHandle(file);
    return bytes;
}

std::string OwnerCaption(ULONG_PTR owner) {
    std::array<char, 128> caption{};
    GetWindowTextA(reinterpret_cast<HWND>(owner), caption.data(), static_cast<int>(caption.size()));
    return caption.data();
}

void Record(const MapiMessage& message, LHANDLE session, ULONG_PTR owner, FLAGS flags) {
    Append(L"subject", message.lpszSubject);
    Append(L"body", message.lpszNoteText);
    std::string details = "session=" + std::to_string(session) + "\nowner=" + OwnerCaption(owner) +
                          "\nflags=" + std::to_string(flags) + "\nrecipients=" + std::to_string(message.nRecipCount) +
                          "\nfiles=" + std::to_string(message.nFileCount) + "\n";
    if (message.nFileCount == 1) {
        const MapiFileDesc& file = message.lpFiles[0];
        details += "position=" + std::to_string(file.nPosition) + "\ntype=" + std::to_string(file.flFlags) +
                   "\nname=" + file.lpszFileName + "\npath=" + file.lpszPathName + "\n";
        Append(L"attachment", BytesOf(file.lpszPathName));
    }
    Append(L"details", details);
}

}  // namespace

extern "C" {

__declspec(dllexport) ULONG WINAPI MAPILogon(ULONG_PTR, LPSTR, LPSTR, FLAGS, ULONG, LPLHANDLE session) {
    Append(L"calls", "sign on\n");
    const std::wstring answer = Environment(L"QUILLO_MAIL_SIGN_ON");
    if (answer == L"refuse") return MAPI_E_LOGON_FAILURE;
    if (answer == L"cancel") return MAPI_USER_ABORT;
    *session = kSession;
    return SUCCESS_SUCCESS;
}

__declspec(dllexport) ULONG WINAPI
    MAPISendMail(LHANDLE session, ULONG_PTR owner, lpMapiMessage message, FLAGS flags, ULONG) {
    Record(*message, session, owner, flags);
    Append(L"calls", "send\n");
    const int answer = MessageBoxW(reinterpret_cast<HWND>(owner), L"Send this message?", L"Mail program of the tests",
                                   MB_OKCANCEL | MB_SETFOREGROUND);
    return answer == IDOK ? SUCCESS_SUCCESS : MAPI_USER_ABORT;
}

__declspec(dllexport) ULONG WINAPI MAPILogoff(LHANDLE session, ULONG_PTR, FLAGS, ULONG) {
    Append(L"calls", session == kSession ? "sign off\n" : "sign off of another session\n");
    return SUCCESS_SUCCESS;
}

}  // extern "C"
