#include "controls/note_button_images.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "platform/artwork.h"
#include "platform/dib.h"
#include "resources/resource_ids.h"

namespace quillo {
namespace {

constexpr int kRows = 5;
constexpr int kColumns = 3;
constexpr int kOpaque = 255;
/// More than the color schemes that a desktop shows at once, active and inactive.
constexpr std::size_t kStripsKept = 32;

constexpr std::size_t PixelCount(int frame) {
    return static_cast<std::size_t>(frame) * kColumns * static_cast<std::size_t>(frame) * kRows;
}

/// Blends `over` onto `under` with that coverage (0 to 255).
ColorWord Cover(ColorWord under, ColorWord over, int coverage) {
    const auto channel = [coverage](int below, int above) {
        return below + ((above - below) * coverage + (above >= below ? kOpaque / 2 : -kOpaque / 2)) / kOpaque;
    };
    return ColorWord::FromRgb(channel(under.Red(), over.Red()), channel(under.Green(), over.Green()),
                              channel(under.Blue(), over.Blue()));
}

}  // namespace

HBITMAP NoteButtonImages::Strip(const ButtonTint& tint, const Scale& scale) {
    const int frame = scale.Px(kButtonFrame);
    const auto kept = std::find_if(strips_.begin(), strips_.end(),
                                   [&](const TintedStrip& s) { return s.tint == tint && s.frame == frame; });
    if (kept != strips_.end()) {
        strips_.splice(strips_.begin(), strips_, kept);
        return strips_.front().bitmap.Get();
    }
    strips_.push_front(TintedStrip{tint, frame, Compose(CoverageFor(frame), tint)});
    if (strips_.size() > kStripsKept) strips_.pop_back();
    return strips_.front().bitmap.Get();
}

const NoteButtonImages::Coverage& NoteButtonImages::CoverageFor(int frame) {
    for (const Coverage& coverage : coverages_) {
        if (coverage.frame == frame) return coverage;
    }
    Coverage loaded = LoadCoverage(frame);
    coverages_.push_back(loaded.frame == frame ? std::move(loaded) : Resample(loaded, frame));
    return coverages_.back();
}

NoteButtonImages::Coverage NoteButtonImages::LoadCoverage(int frame) {
    constexpr std::size_t kPlanes = 2;  // of the glyphs, of the plates behind them
    const int id = frame <= 20 ? IDR_NOTE_BUTTONS_100 : frame <= 30 ? IDR_NOTE_BUTTONS_150 : IDR_NOTE_BUTTONS_200;
    CoveragePlanes drawn = LoadPlanes(id, kPlanes);
    if (drawn.planes.empty()) {
        return Coverage{frame, CoveragePlane(PixelCount(frame)), CoveragePlane(PixelCount(frame))};
    }
    return Coverage{drawn.size.width / kColumns, std::move(drawn.planes[0]), std::move(drawn.planes[1])};
}

/// Each target pixel is the mean of the source area that it covers.
NoteButtonImages::Coverage NoteButtonImages::Resample(const Coverage& source, int frame) {
    Coverage target{frame, std::vector<unsigned char>(PixelCount(frame)),
                    std::vector<unsigned char>(PixelCount(frame))};
    const int width = frame * kColumns;
    const int sourceWidth = source.frame * kColumns;
    // Sixteen samples per side are enough for any scale between the strips.
    constexpr int kSamples = 16;
    for (int y = 0; y < frame * kRows; ++y) {
        for (int x = 0; x < width; ++x) {
            int glyph = 0;
            int plate = 0;
            for (int sample = 0; sample < kSamples * kSamples; ++sample) {
                const int fineX = x * kSamples + sample % kSamples;
                const int fineY = y * kSamples + sample / kSamples;
                const int sourceX = fineX * source.frame / (frame * kSamples);
                const int sourceY = fineY * source.frame / (frame * kSamples);
                const auto index = static_cast<std::size_t>(sourceY * sourceWidth + sourceX);
                glyph += source.glyph[index];
                plate += source.plate[index];
            }
            const auto index = static_cast<std::size_t>(y * width + x);
            target.glyph[index] = static_cast<unsigned char>(glyph / (kSamples * kSamples));
            target.plate[index] = static_cast<unsigned char>(plate / (kSamples * kSamples));
        }
    }
    return target;
}

BitmapHandle NoteButtonImages::Compose(const Coverage& coverage, const ButtonTint& tint) {
    const int width = coverage.frame * kColumns;
    const int height = coverage.frame * kRows;
    std::uint32_t* pixels = nullptr;
    BitmapHandle bitmap = MakeDib(Size{width, height}, &pixels);
    if (!bitmap) return bitmap;
    for (int y = 0; y < height; ++y) {
        const int row = y % coverage.frame;
        const int percent = coverage.frame > 1 ? row * 100 / (coverage.frame - 1) : 0;
        const ColorWord bar = Mix(tint.bottom, tint.top, percent);
        for (int x = 0; x < width; ++x) {
            const auto index = static_cast<std::size_t>(y * width + x);
            const bool atRest = x < coverage.frame;
            const int glyph = coverage.glyph[index] * (tint.faint && atRest ? kFaintGlyphPercent : 100) / 100;
            const ColorWord plate = Cover(bar, tint.glyph, coverage.plate[index]);
            const ColorWord color = Cover(plate, tint.glyph, glyph);
            pixels[index] = static_cast<std::uint32_t>(color.Red()) << 16 |
                            static_cast<std::uint32_t>(color.Green()) << 8 | static_cast<std::uint32_t>(color.Blue());
        }
    }
    return bitmap;
}

}  // namespace quillo
