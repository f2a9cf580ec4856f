#include "platform/win_printer.h"

#include "platform/gdi_canvas.h"
#include "platform/gdi_scope.h"
#include "platform/late_library.h"
#include "platform/wide.h"
#include "util/busy_flag.h"

namespace quillo {
namespace {

constexpr int kPointsPerInch = 72;

/// "" if there is none.
std::u16string DefaultPrinter() {
    static LateFunction<BOOL WINAPI(wchar_t*, DWORD*)> getDefault(L"winspool.drv", "GetDefaultPrinterW");
    if (getDefault.Get() == nullptr) return {};
    DWORD size = 0;
    getDefault.Get()(nullptr, &size);
    std::u16string name(size, u'\0');
    if (size == 0 || getDefault.Get()(WideBuffer(name), &size) == 0) return {};
    name.resize(name.find(u'\0'));
    return name;
}

/// Shows the wait pointer; the next move of the mouse restores the right one.
class WaitPointer {
  public:
    WaitPointer() : previous_(SetCursor(LoadCursorW(nullptr, MAKEINTRESOURCEW(kHourglass)))) {}
    WaitPointer(const WaitPointer&) = delete;
    WaitPointer& operator=(const WaitPointer&) = delete;
    ~WaitPointer() { SetCursor(previous_); }

  private:
    static constexpr WORD kHourglass = 32514;  // the named constant is narrow text while UNICODE is off

    HCURSOR previous_;
};

class WinPrintJob : public PrintJob {
  public:
    WinPrintJob(std::u16string_view documentName, BusyFlag& dialogs);
    WinPrintJob(const WinPrintJob&) = delete;
    WinPrintJob& operator=(const WinPrintJob&) = delete;
    ~WinPrintJob() override;

    [[nodiscard]] PrintSheet Sheet() const override { return sheet_; }
    [[nodiscard]] bool StartPage() override;
    void EndPage() override;
    [[nodiscard]] PrintOutcome Finish() override;

    void SetFont(const PrintFont& font) override;
    [[nodiscard]] Size Measure(std::u16string_view line) override;
    [[nodiscard]] std::size_t CountThatFit(std::u16string_view line, int width) override;
    void Text(Point at, std::u16string_view line) override;
    void Fill(const Rect& area, ColorWord color) override;

  private:
    /// Remembers the first failure.
    void Check(bool done, PrintOutcome otherwise = PrintOutcome::Failed);
    /// Makes a call during which the printer may show windows of its own; the user can cancel there. Such a call
    /// returns a number above 0 on success.
    template <typename Call>
    bool Ask(Call call);
    void ReadSheet();

    BusyFlag::Scope busy_;
    WaitPointer waiting_;
    FontHandle font_;
    MemoryDc dc_;  // after the font, which it must release first
    PrintSheet sheet_;
    PrintOutcome outcome_ = PrintOutcome::Printed;
    bool open_ = false;  ///< the document was started and has been neither ended nor withdrawn
};

WinPrintJob::WinPrintJob(std::u16string_view documentName, BusyFlag& dialogs) : busy_(dialogs) {
    const std::u16string printer = DefaultPrinter();
    if (!printer.empty()) dc_.Reset(CreateDCW(L"WINSPOOL", Wide(printer), nullptr, nullptr));
    Check(static_cast<bool>(dc_));
    if (dc_) ReadSheet();
    if (outcome_ != PrintOutcome::Printed) return;
    const std::u16string name(documentName);
    DOCINFOW document{};
    document.cbSize = sizeof document;
    document.lpszDocName = Wide(name);
    open_ = Ask([&] { return StartDocW(dc_.Get(), &document); });
    // The surface begins at the printable area; the job counts from the corner of the paper.
    SetViewportOrgEx(dc_.Get(), -sheet_.printable.left, -sheet_.printable.top, nullptr);
    SetBkMode(dc_.Get(), TRANSPARENT);
    SetTextColor(dc_.Get(), RGB(0, 0, 0));
}

WinPrintJob::~WinPrintJob() {
    if (open_) AbortDoc(dc_.Get());
}

void WinPrintJob::ReadSheet() {
    const auto figure = [this](int index) { return GetDeviceCaps(dc_.Get(), index); };
    sheet_.paper = Size{figure(PHYSICALWIDTH), figure(PHYSICALHEIGHT)};
    sheet_.printable = Rect{figure(PHYSICALOFFSETX), figure(PHYSICALOFFSETY), figure(HORZRES), figure(VERTRES)};
    sheet_.dotsPerInchAcross = figure(LOGPIXELSX);
    sheet_.dotsPerInchDown = figure(LOGPIXELSY);
    Check(sheet_.paper.width > 0 && sheet_.paper.height > 0 && sheet_.dotsPerInchAcross > 0 &&
          sheet_.dotsPerInchDown > 0);
}

void WinPrintJob::Check(bool done, PrintOutcome otherwise) {
    if (!done && outcome_ == PrintOutcome::Printed) outcome_ = otherwise;
}

template <typename Call>
bool WinPrintJob::Ask(Call call) {
    SetLastError(ERROR_SUCCESS);
    const bool done = call() > 0;
    const DWORD error = GetLastError();
    const bool canceled = error == ERROR_CANCELLED || error == ERROR_PRINT_CANCELLED;
    Check(done, canceled ? PrintOutcome::Canceled : PrintOutcome::Failed);
    return done;
}

bool WinPrintJob::StartPage() {
    return outcome_ == PrintOutcome::Printed && Ask([this] { return ::StartPage(dc_.Get()); });
}

void WinPrintJob::EndPage() {
    Ask([this] { return ::EndPage(dc_.Get()); });
}

PrintOutcome WinPrintJob::Finish() {
    if (open_ && outcome_ == PrintOutcome::Printed) open_ = !Ask([this] { return EndDoc(dc_.Get()); });
    return outcome_;
}

void WinPrintJob::SetFont(const PrintFont& font) {
    LOGFONTW wanted{};
    wanted.lfHeight = -MulDiv(font.points, sheet_.dotsPerInchDown, kPointsPerInch);
    wanted.lfWeight = font.bold ? FW_BOLD : FW_NORMAL;
    wanted.lfItalic = font.italic ? 1 : 0;
    wanted.lfUnderline = font.underline ? 1 : 0;
    wanted.lfStrikeOut = font.strikeThrough ? 1 : 0;
    wanted.lfCharSet = font.charset > 0 ? static_cast<BYTE>(font.charset) : BYTE{DEFAULT_CHARSET};
    lstrcpynW(wanted.lfFaceName, Wide(font.name), LF_FACESIZE);
    FontHandle made(CreateFontIndirectW(&wanted));
    Check(made && SelectObject(dc_.Get(), made.Get()) != nullptr);
    font_ = std::move(made);
}

Size WinPrintJob::Measure(std::u16string_view line) {
    SIZE size{};
    Check(GetTextExtentPoint32W(dc_.Get(), WideData(line), static_cast<int>(line.size()), &size) != 0);
    return Size{size.cx, size.cy};
}

std::size_t WinPrintJob::CountThatFit(std::u16string_view line, int width) {
    SIZE size{};
    int count = 0;
    Check(GetTextExtentExPointW(dc_.Get(), WideData(line), static_cast<int>(line.size()), width, &count, nullptr,
                                &size) != 0);
    return count > 0 ? static_cast<std::size_t>(count) : 0;
}

void WinPrintJob::Text(Point at, std::u16string_view line) {
    Check(TextOutW(dc_.Get(), at.x, at.y, WideData(line), static_cast<int>(line.size())) != 0);
}

void WinPrintJob::Fill(const Rect& area, ColorWord color) {
    // A new brush: some printer drivers do not support the system's changeable one.
    const BrushHandle brush(CreateSolidBrush(ToColorRef(color)));
    const RECT rect = ToWin32(area);
    Check(brush && FillRect(dc_.Get(), &rect, brush.Get()) != 0);
}

}  // namespace

std::unique_ptr<PrintJob> WinPrinter::Open(std::u16string_view documentName) {
    return std::make_unique<WinPrintJob>(documentName, dialogs_);
}

}  // namespace quillo
