// Saving all of 50 changed notes in the running program, compared with plain writes of the same bytes in the same run,
// interleaved; prints the ratio of the medians.
// Usage: save_bench QUILLO.EXE [RUNS [NOTES]]
// It uses the notes folder of the user who runs it, and refuses one that holds notes.

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "bench/program_run.h"
#include "bench/stopwatch.h"

namespace {

using Clock = std::chrono::steady_clock;

double MillisecondsSince(Clock::time_point begin) {
    return std::chrono::duration<double, std::milli>(Clock::now() - begin).count();
}

/// By then the change has been painted, but not yet saved automatically.
constexpr DWORD kPaintedMilliseconds = 500;

/// How durable a plain write is. Saved notes must survive a power failure, so only the last one is a fair comparison.
enum class Care { None, Flush, FlushAndReplace };

bool WritePlainly(const std::wstring& path, const std::string& bytes, Care care) {
    const std::wstring name = care == Care::FlushAndReplace ? path + L".new" : path;
    {
        const quillo::FileHandle file(
            CreateFileW(name.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
        DWORD written = 0;
        if (!file || WriteFile(file.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) == 0) {
            return false;
        }
        if (care != Care::None && FlushFileBuffers(file.Get()) == 0) return false;
    }
    if (care != Care::FlushAndReplace) return true;
    return MoveFileExW(name.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
}

/// Files with the same bytes as the notes, under names in the same folder that the program ignores.
class PlainFiles {
  public:
    explicit PlainFiles(const std::vector<std::wstring>& notes) {
        for (const std::wstring& path : notes) {
            paths_.push_back(path + L".plain");
            bytes_.push_back(quillo::bench::ReadAll(path));
        }
    }
    PlainFiles(const PlainFiles&) = delete;
    PlainFiles& operator=(const PlainFiles&) = delete;
    ~PlainFiles() {
        for (const std::wstring& path : paths_) DeleteFileW(path.c_str());
    }
    /// Negative on failure.
    [[nodiscard]] double TimeWrites(Care care) const {
        const auto begin = Clock::now();
        for (std::size_t i = 0; i < paths_.size(); ++i) {
            if (!WritePlainly(paths_[i], bytes_[i], care)) return -1;
        }
        return MillisecondsSince(begin);
    }

  private:
    std::vector<std::wstring> paths_;
    std::vector<std::string> bytes_;
};

void ChangeAll(const quillo::bench::ProgramRun& quillo) {
    for (HWND box : quillo.TextBoxes()) {
        // Replaces the first character: the length of the files does not change.
        SendMessageW(box, EM_SETSEL, 0, 1);
        SendMessageW(box, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(L"M"));
    }
}

std::vector<ULONGLONG> WriteTimes(const std::vector<std::wstring>& paths) {
    std::vector<ULONGLONG> times;
    for (const std::wstring& path : paths) {
        WIN32_FILE_ATTRIBUTE_DATA data{};
        GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data);
        times.push_back((ULONGLONG{data.ftLastWriteTime.dwHighDateTime} << 32) + data.ftLastWriteTime.dwLowDateTime);
    }
    return times;
}

}  // namespace

int main(int argc, char** argv) {
    using namespace quillo::bench;
    if (argc < 2) return std::printf("usage: save_bench QUILLO.EXE [RUNS [NOTES]]\n"), 2;
    const int runs = argc > 2 ? std::atoi(argv[2]) : 15;
    const int notes = argc > 3 ? std::atoi(argv[3]) : 50;
    const NotesFolder folder(notes);
    if (!folder.IsReady()) return std::printf("the notes folder holds notes, or cannot be written\n"), 2;
    const ProgramRun quillo(argv[1], notes);
    if (!quillo.IsReady()) return std::printf("the notes did not come\n"), 1;
    const PlainFiles plain(folder.Files());

    std::vector<double> ours;
    std::vector<double> unchanged;
    std::vector<double> bare;
    std::vector<double> flushed;
    std::vector<double> replaced;
    for (int run = -1; run < runs; ++run) {  // the first round only warms up
        const auto before = WriteTimes(folder.Files());
        ChangeAll(quillo);
        Sleep(kPaintedMilliseconds);
        auto begin = Clock::now();
        if (!quillo.SaveAll()) return std::printf("the program did not save\n"), 1;
        const double changed = MillisecondsSince(begin);
        const auto after = WriteTimes(folder.Files());
        for (std::size_t i = 0; i < before.size(); ++i) {
            if (before[i] == after[i]) return std::printf("a changed note was not written\n"), 1;
        }
        begin = Clock::now();
        if (!quillo.SaveAll()) return std::printf("the program did not save\n"), 1;
        const double nothing = MillisecondsSince(begin);
        if (WriteTimes(folder.Files()) != after) return std::printf("an unchanged note was written\n"), 1;
        const double withReplace = plain.TimeWrites(Care::FlushAndReplace);
        const double withFlush = plain.TimeWrites(Care::Flush);
        const double withoutCare = plain.TimeWrites(Care::None);
        if (withReplace < 0 || withFlush < 0 || withoutCare < 0) return std::printf("a plain write failed\n"), 1;
        if (run < 0) continue;
        ours.push_back(changed), unchanged.push_back(nothing);
        replaced.push_back(withReplace), flushed.push_back(withFlush), bare.push_back(withoutCare);
    }
    const double program = Median(ours);
    std::printf("%d notes                            ms   program's share\n", notes);
    std::printf("all changed, saved by the program %7.2f\n", program);
    std::printf("plain: flushed and put in place   %7.2f   %.2f\n", Median(replaced), program / Median(replaced));
    std::printf("plain: flushed                    %7.2f   %.2f\n", Median(flushed), program / Median(flushed));
    std::printf("plain: neither                    %7.2f   %.2f\n", Median(bare), program / Median(bare));
    std::printf("none changed                      %7.2f   (no file was touched)\n", Median(unchanged));
    return 0;
}
