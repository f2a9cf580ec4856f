// Renders the main menu as the program composes it: menu_faces PLANES PICTURE. PLANES is one of the rendered drawings,
// PICTURE becomes a PPM file: the normal, the highlighted and the disabled face, in the menu's own colors and below
// them in those of a dark high-contrast scheme.
#include <cstdio>
#include <iterator>
#include <memory>
#include <vector>

#include "mainmenu/menu_planes.h"
#include "util/coverage_planes.h"

namespace {

using namespace quillo;

struct CloseFile {
    void operator()(std::FILE* file) const { (void)std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

constexpr ContrastColors kDarkScheme{ColorWord::FromRgb(0, 0, 0), ColorWord::FromRgb(255, 255, 255),
                                     ColorWord::FromRgb(63, 242, 63), ColorWord::FromRgb(26, 235, 255),
                                     ColorWord::FromRgb(0, 0, 0)};
constexpr MenuFace kFaces[] = {MenuFace::Normal, MenuFace::Highlighted, MenuFace::Disabled};

std::vector<std::uint8_t> ReadAll(const char* path) {
    std::vector<std::uint8_t> bytes;
    const File file(std::fopen(path, "rb"));
    if (!file) return bytes;
    for (int next = std::fgetc(file.get()); next != EOF; next = std::fgetc(file.get())) {
        bytes.push_back(static_cast<std::uint8_t>(next));
    }
    return bytes;
}

/// One row of the picture: the same row of each face.
void AppendRow(std::vector<std::uint8_t>& picture, const std::vector<std::uint32_t>& face, int y, int width) {
    for (int x = 0; x < width; ++x) {
        const std::uint32_t pixel = face[static_cast<std::size_t>(y * width + x)];
        for (const int shift : {16, 8, 0}) picture.push_back(static_cast<std::uint8_t>(pixel >> shift & 0xFFU));
    }
}

std::vector<std::uint8_t> Compose(const MenuPlanes& planes) {
    std::vector<std::uint8_t> picture;
    for (const bool contrast : {false, true}) {
        std::vector<std::vector<std::uint32_t>> faces;
        for (const MenuFace face : kFaces) {
            faces.push_back(ComposeMenu(planes, contrast ? ColorsOf(face, kDarkScheme) : ColorsOf(face), {}));
        }
        for (int y = 0; y < planes.size.height; ++y) {
            for (const auto& face : faces) AppendRow(picture, face, y, planes.size.width);
        }
    }
    return picture;
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 3) return 2;
    const MenuPlanes planes =
        ToMenuPlanes(ReadPlanes(ReadAll(arguments[1]), static_cast<std::size_t>(MenuPlane::Count)));
    const File file(std::fopen(arguments[2], "wb"));
    if (planes.size.width == 0 || !file) return 1;
    const std::vector<std::uint8_t> picture = Compose(planes);
    const int faces = static_cast<int>(std::size(kFaces));
    (void)std::fprintf(file.get(), "P6\n%d %d\n255\n", planes.size.width * faces, planes.size.height * 2);
    return std::fwrite(picture.data(), 1, picture.size(), file.get()) == picture.size() ? 0 : 1;
}
