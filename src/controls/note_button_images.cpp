#include "controls/note_button_images.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include "platform/artwork.h"
#include "platform/dib.h"
#include "resources/resource_ids.h"

namespace quillo {
namespace {

/// More than the color schemes that a desktop shows at once, active and inactive.
constexpr std::size_t kStripsKept = 32;

/// The rendered strip with frames of that edge, or the next larger one.
int ResourceFor(int frame) {
    return frame <= 20 ? IDR_NOTE_BUTTONS_100 : frame <= 30 ? IDR_NOTE_BUTTONS_150 : IDR_NOTE_BUTTONS_200;
}

BitmapHandle MakeStrip(const CoveragePlanes& drawn, const ButtonTint& tint) {
    std::uint32_t* pixels = nullptr;
    BitmapHandle bitmap = MakeDib(drawn.size, &pixels);
    if (!bitmap) return bitmap;
    const std::vector<std::uint32_t> composed = ComposeButtons(drawn, tint);
    std::copy(composed.begin(), composed.end(), pixels);
    return bitmap;
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
    strips_.push_front(TintedStrip{tint, frame, MakeStrip(StripFor(frame), tint)});
    if (strips_.size() > kStripsKept) strips_.pop_back();
    return strips_.front().bitmap.Get();
}

const CoveragePlanes& NoteButtonImages::StripFor(int frame) {
    for (const CoveragePlanes& drawn : drawn_) {
        if (drawn.size == ButtonStripSize(frame)) return drawn;
    }
    drawn_.push_back(ButtonStripAt(LoadPlanes(ResourceFor(frame), kButtonPlanes), frame));
    return drawn_.back();
}

}  // namespace quillo
