// The speed of splitting a note file, compared with copying the same bytes.
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "bench/stopwatch.h"
#include "notes/note_codec.h"

namespace {

std::string MakeFile(std::size_t size) {
    const std::string block =
        "\r\n<quillo><position>7200,3600,3000,2400</position><appearance>False,False,14155262,3723262,0,0</appearance>"
        "<reminder></reminder><nodelete></nodelete></quillo>";
    std::string file;
    while (file.size() + block.size() < size) file += "Call Bob about the garden. ";
    file.resize(size > block.size() ? size - block.size() : 0);
    return file + block;
}

}  // namespace

int main() {
    std::printf("%12s %14s %14s %8s\n", "bytes", "split GB/s", "memcpy GB/s", "ratio");
    for (const std::size_t size :
         {std::size_t{200}, std::size_t{10'000}, std::size_t{1'000'000}, std::size_t{50'000'000}}) {
        const std::string file = MakeFile(size);
        std::vector<char> copy(file.size());
        const char* volatile source = file.data();  // volatile: read again for each call
        const std::size_t calls = 100'000'000 / file.size();
        const auto [split, copying] = quillo::bench::Compare(
            15, calls,
            [&] {
                const quillo::NoteFileParts parts = quillo::SplitNoteFile({source, file.size()});
                quillo::bench::Keep(parts);
            },
            [&] {
                std::memcpy(copy.data(), source, file.size());
                quillo::bench::Keep(copy);
            });
        const double bytes = static_cast<double>(file.size());
        std::printf("%12zu %14.2f %14.2f %8.2f\n", file.size(), bytes / split / 1e9, bytes / copying / 1e9,
                    split / copying);
    }
    return 0;
}
