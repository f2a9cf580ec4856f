// What work by hand costs: the processor time of the program for typing, moving, sizing, hovering, scrolling and the
// menu's slide, where possible compared with the bare program in the same run, interleaved; and the delays that a user
// feels. Prints medians, the ratio of the medians, and the least and the greatest value of each.
// Usage: hand_bench QUILLO.EXE BARE_NOTES.EXE [ROUNDS]
// At a scaling of the system other than 100 % only the frames are measured, because the bare program does not scale. It
// uses the pointer and the notes folder of the user who runs it, and refuses a folder that holds notes.

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "app/base/registry_keys.h"
#include "bench/hand_actions.h"
#include "bench/program_run.h"
#include "bench/stopwatch.h"
#include "mainmenu/menu_slide.h"
#include "platform/dpi.h"
#include "platform/wide.h"
#include "platform/win_file_store.h"
#include "platform/win_registry_api.h"
#include "registry/tessel_registry.h"

namespace {

using namespace quillo::bench;

/// The most that can be open, and so many that two more can be opened.
constexpr int kNotes = 50;
constexpr int kFewerNotes = 48;
constexpr std::size_t kLargeText = std::size_t{1024} * 1024;
constexpr int kCharacters = 5000;
constexpr int kHoverChanges = 100;
constexpr int kSlides = 6;
constexpr int kPages = 200;

enum Figure : int {
    kTyping,
    kDragging,
    kResizing,
    kScrolling,
    kHover,
    kSlide,
    kShowAll,
    kMenuFrame,
    kHotKey,
    kSecondStart,
    kFigures
};
constexpr std::array<const char*, kFigures> kNames = {"typing 5,000 characters, ms",
                                                      "dragging in 100 steps, ms",
                                                      "resizing in 100 steps, ms",
                                                      "scrolling 1 MB by 200 pages, ms",
                                                      "a change of a hovered button, ms",
                                                      "a frame of the menu's slide, ms",
                                                      "showing all notes, ms",
                                                      "click to the menu, ms of delay",
                                                      "hotkey to caret, ms of delay",
                                                      "second start to note, ms of delay"};

/// One value of each figure; negative if it could not be measured.
using Values = std::array<double, kFigures>;

/// Both programs can do these.
void MeasureWork(const ProgramRun& run, const Hand& hand, const std::function<bool()>& saveAll, Values& values) {
    values[kTyping] = CostOf(run, [&] { return Type(hand, kCharacters); }).processor;
    // A save in the middle of the next action would be counted as a part of it.
    if (!saveAll()) return;
    values[kDragging] = CostOf(run, [&] { return Drag(hand); }).processor;
    if (!saveAll()) return;
    values[kResizing] = CostOf(run, [&] { return Resize(hand); }).processor;
    if (!saveAll()) return;
    values[kScrolling] = CostOf(run, [&] { return Scroll(hand, kPages); }).processor;
}

void MeasureFrames(const ProgramRun& run, const Hand& hand, Values& values) {
    // The first of each loads what the others use.
    if (Hover(hand, 2)) {
        const Cost hovering = CostOf(run, [&] { return Hover(hand, kHoverChanges); });
        values[kHover] = hovering.processor / kHoverChanges;
    }
    if (!OpenMenu(hand) || !CloseMenu()) return;
    const Cost slides = CostOf(run, [&] {
        for (int i = 0; i < kSlides; ++i) {
            if (!OpenMenu(hand) || !CloseMenu()) return false;
        }
        return true;
    });
    values[kSlide] = slides.processor / (2 * kSlides * (quillo::kSlideFrames + 1));
}

/// A note file outside of the notes folder.
std::wstring SampleFile() {
    std::array<wchar_t, MAX_PATH + 1> folder{};
    GetTempPathW(static_cast<DWORD>(folder.size()), folder.data());
    std::wstring path = std::wstring(folder.data()) + L"quillo-hand-bench.qln";
    DeleteFileW(path.c_str());
    quillo::WinFileStore files;
    const auto created = files.Create(quillo::FromWide(path.c_str()), SampleNote(2, SamplePlaces::Grid));
    return created == quillo::FileError::None ? path : std::wstring();
}

void MeasureDelays(const ProgramRun& run, const Hand& hand, const std::string& exe, Values& values) {
    values[kMenuFrame] = CostOf(run, [&] { return OpenMenuToFirstFrame(hand); }).clock;
    if (!CloseMenu()) return;
    values[kHotKey] = CostOf(run, [&] { return NewNoteByHotKey(hand); }).clock;
    const std::wstring file = SampleFile();
    const std::wstring program(exe.begin(), exe.end());
    values[kSecondStart] = CostOf(run, [&] { return OpenFileBySecondStart(hand, program, file); }).clock;
    DeleteFileW(file.c_str());
}

/// Starts a program on a folder of its own, and ends it after `measure`.
void WithNotes(const std::string& exe, bool bare, int notes, bool large,
               const std::function<void(const ProgramRun&, const Hand&)>& measure) {
    constexpr DWORD kSettleMilliseconds = 2000;  // start-up leaves timers that fire once
    NotesFolder folder(large ? notes - 1 : notes, SamplePlaces::Diagonal);
    if (!folder.IsReady() || (large && !folder.AddLarge(kLargeText))) return;
    const ProgramRun run(exe, notes, bare ? L" " + folder.Path() : L"", bare ? L"BareNote" : L"QuilloNote");
    if (!run.IsReady()) return;
    Sleep(kSettleMilliseconds);
    const Hand hand = Hand::Of(run);
    if (hand.note != nullptr && (hand.large != nullptr || !large)) measure(run, hand);
}

Values MeasureQuillo(const std::string& exe, bool framesOnly) {
    Values values;
    values.fill(-1);
    WithNotes(exe, false, kNotes, true, [&](const ProgramRun& run, const Hand& hand) {
        if (!framesOnly)
            MeasureWork(
                run, hand, [&] { return run.SaveAll(); }, values);
        MeasureFrames(run, hand, values);
        if (!framesOnly) values[kShowAll] = CostOf(run, [&] { return ShowAllNotes(hand); }).processor;
    });
    if (framesOnly) return values;
    WithNotes(exe, false, kFewerNotes, false,
              [&](const ProgramRun& run, const Hand& hand) { MeasureDelays(run, hand, exe, values); });
    return values;
}

Values MeasureBare(const std::string& exe) {
    Values values;
    values.fill(-1);
    WithNotes(exe, true, kNotes, true, [&](const ProgramRun& run, const Hand& hand) {
        MeasureWork(
            run, hand, [] { return true; }, values);
    });
    return values;
}

/// The values of one figure in all rounds in which it could be measured: the program's, and the bare program's of the
/// same rounds. Without any of the latter, they are not compared.
struct Rounds {
    std::vector<double> ours;
    std::vector<double> theirs;
};

Rounds RoundsOf(int figure, const std::vector<Values>& ours, const std::vector<Values>& theirs) {
    Rounds compared;
    Rounds alone;
    for (std::size_t i = 0; i < ours.size(); ++i) {
        if (ours[i][figure] < 0) continue;
        alone.ours.push_back(ours[i][figure]);
        if (theirs[i][figure] < 0) continue;
        compared.ours.push_back(ours[i][figure]);
        compared.theirs.push_back(theirs[i][figure]);
    }
    return compared.theirs.empty() ? alone : compared;
}

struct Spread {
    double median;
    double least;
    double most;
};

Spread SpreadOf(const std::vector<double>& values) {
    const auto [least, most] = std::minmax_element(values.begin(), values.end());
    return Spread{Median(values), *least, *most};
}

void Print(const char* name, const Rounds& rounds) {
    const auto& [ours, theirs] = rounds;
    if (ours.empty()) return;
    const Spread a = SpreadOf(ours);
    std::printf("%-34s %8.2f (%.2f to %.2f)", name, a.median, a.least, a.most);
    if (!theirs.empty()) {
        const Spread b = SpreadOf(theirs);
        std::vector<double> ratios;
        for (std::size_t i = 0; i < ours.size(); ++i) ratios.push_back(ours[i] / theirs[i]);
        const Spread ratio = SpreadOf(ratios);
        std::printf("  %8.2f (%.2f to %.2f)  %.2f (%.2f to %.2f)", b.median, b.least, b.most, a.median / b.median,
                    ratio.least, ratio.most);
    }
    std::printf("  %d rounds\n", static_cast<int>(ours.size()));
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 3) return std::printf("usage: hand_bench QUILLO.EXE BARE_NOTES.EXE [ROUNDS]\n"), 2;
    const int rounds = argc > 3 ? std::atoi(argv[3]) : 15;
    if (!NotesFolder(0).IsReady()) return std::printf("the notes folder holds notes\n"), 2;
    // The first start of all opens the help, over the notes.
    quillo::WinRegistryApi registry;
    quillo::TesselRegistry(registry, quillo::kUserKey).SetValueLong(u"Shown Help", quillo::kTrueNumber);
    const int dpi = quillo::SystemScale().Dpi();
    const bool framesOnly = dpi != USER_DEFAULT_SCREEN_DPI;
    BOOL dragsWhole = FALSE;
    SystemParametersInfoW(SPI_GETDRAGFULLWINDOWS, 0, &dragsWhole, 0);
    SystemParametersInfoW(SPI_SETDRAGFULLWINDOWS, TRUE, nullptr, 0);
    Values notMeasured;
    notMeasured.fill(-1);
    std::vector<Values> ours;
    std::vector<Values> theirs;
    for (int round = -1; round < rounds; ++round) {  // the first round only warms up
        const Values a = MeasureQuillo(argv[1], framesOnly);
        const Values b = framesOnly ? notMeasured : MeasureBare(argv[2]);
        if (round < 0) continue;
        ours.push_back(a);
        theirs.push_back(b);
    }
    SystemParametersInfoW(SPI_SETDRAGFULLWINDOWS, static_cast<UINT>(dragsWhole), nullptr, 0);
    std::printf("%d notes, %d dots per inch; processor time unless it is a delay\n", kNotes, dpi);
    std::printf("%-34s %s\n", "", "quillo (least to most)  bare program (least to most)  ratio (least to most)");
    bool hasAny = false;
    for (int i = 0; i < kFigures; ++i) {
        const Rounds measured = RoundsOf(i, ours, theirs);
        hasAny = hasAny || !measured.ours.empty();
        Print(kNames[i], measured);
    }
    return hasAny ? 0 : 1;
}
