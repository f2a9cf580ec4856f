#include "harness/test_printer.h"

#include <gtest/gtest.h>

#include <array>
#include <sstream>

#include "harness/eventually.h"
#include "harness/files.h"

// After windows.h.
#include <winspool.h>

namespace quillo::e2e {
namespace {

constexpr wchar_t kPrinter[] = L"Quillo test printer";
constexpr wchar_t kDriver[] = L"Quillo test driver";

std::wstring Environment(const wchar_t* name) {
    std::array<wchar_t, 1024> value{};
    const DWORD length = GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size()));
    EXPECT_TRUE(length > 0 && length < value.size()) << "run this by scripts/check_printing.sh";
    return std::wstring(value.data(), length);
}

/// The system's records need pointers to writable text.
wchar_t* Writable(const std::wstring& text) {
    return const_cast<wchar_t*>(text.c_str());
}

void AddDriver(const std::wstring& description) {
    const std::wstring name = kDriver;
    const std::wstring library = L"wineps.drv";
    const std::wstring type = L"RAW";
    DRIVER_INFO_3W driver{};
    driver.cVersion = 3;
    driver.pName = Writable(name);
    driver.pDriverPath = Writable(library);
    driver.pConfigFile = Writable(library);
    driver.pDataFile = Writable(description);
    driver.pDefaultDataType = Writable(type);
    constexpr DWORD kNewFilesFromTheirFolder = APD_COPY_NEW_FILES | APD_COPY_FROM_DIRECTORY;
    EXPECT_TRUE(AddPrinterDriverExW(nullptr, 3, reinterpret_cast<BYTE*>(&driver), kNewFilesFromTheirFolder));
}

void AddPrinter(const std::wstring& port) {
    const std::wstring name = kPrinter;
    const std::wstring driver = kDriver;
    const std::wstring processor = L"WinPrint";
    const std::wstring type = L"RAW";
    PRINTER_INFO_2W printer{};
    printer.pPrinterName = Writable(name);
    printer.pPortName = Writable(port);
    printer.pDriverName = Writable(driver);
    printer.pPrintProcessor = Writable(processor);
    printer.pDatatype = Writable(type);
    printer.Attributes = PRINTER_ATTRIBUTE_LOCAL;
    HANDLE made = AddPrinterW(nullptr, 2, reinterpret_cast<BYTE*>(&printer));
    EXPECT_NE(made, nullptr);
    if (made != nullptr) ClosePrinter(made);
}

std::string TrimmedLine(const std::string& line) {
    const std::size_t first = line.find_first_not_of(" \r");
    if (first == std::string::npos) return {};
    return line.substr(first, line.find_last_not_of(" \r") - first + 1);
}

}  // namespace

std::wstring DefaultPrinter() {
    std::array<wchar_t, 512> name{};
    auto size = static_cast<DWORD>(name.size());
    return GetDefaultPrinterW(name.data(), &size) != 0 ? name.data() : L"";
}

TestPrinter::TestPrinter(std::wstring port)
    : printed_(Environment(L"QUILLO_PRINTED")), defaultBefore_(DefaultPrinter()) {
    DeleteFileW(printed_.c_str());
    DeleteFileW((printed_ + L".count").c_str());
    AddDriver(Environment(L"QUILLO_TEST_PPD"));
    AddPrinter(port.empty() ? Environment(L"QUILLO_TEST_PORT") : port);
    EXPECT_TRUE(SetDefaultPrinterW(kPrinter));
}

TestPrinter::~TestPrinter() {
    HANDLE printer = nullptr;
    PRINTER_DEFAULTSW wanted{nullptr, nullptr, PRINTER_ALL_ACCESS};
    std::wstring name = kPrinter;
    if (OpenPrinterW(name.data(), &printer, &wanted) != 0) {
        DeletePrinter(printer);
        ClosePrinter(printer);
    }
    if (!defaultBefore_.empty()) SetDefaultPrinterW(defaultBefore_.c_str());
}

std::vector<std::vector<std::string>> TestPrinter::TakePages() const {
    EXPECT_TRUE(Eventually([this] { return HasPrinted(); })) << "nothing was printed";
    std::vector<std::vector<std::string>> pages;
    std::istringstream text(HasPrinted() ? ReadBytes(printed_) : std::string());
    for (std::string page; std::getline(text, page, '\f');) {
        std::vector<std::string> lines;
        std::istringstream rest(page);
        for (std::string line; std::getline(rest, line);) {
            line = TrimmedLine(line);
            if (!line.empty()) lines.push_back(line);
        }
        pages.push_back(lines);
    }
    DeleteFileW(printed_.c_str());
    return pages;
}

bool TestPrinter::HasPrinted() const {
    return FileExists(printed_);
}

std::size_t TestPrinter::Documents() const {
    const std::wstring path = printed_ + L".count";
    return FileExists(path) ? ReadBytes(path).size() : 0;
}

std::string TestPrinter::DocumentTitle() const {
    const std::string bytes = ReadBytes(printed_ + L".ps");
    const std::string key = "%%Title: ";
    const std::size_t start = bytes.find(key);
    if (start == std::string::npos) return "(none)";
    const std::size_t title = start + key.size();
    return bytes.substr(title, bytes.find_first_of("\r\n", title) - title);
}

}  // namespace quillo::e2e
