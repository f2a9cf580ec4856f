#include "controls/swatch_palette.h"

#include <cstddef>

#include "ports/random.h"

namespace quillo {

const ColorScheme& RandomScheme(Random& random) {
    return kSwatches[static_cast<std::size_t>(random.Next() * kRandomSwatches)];
}

}  // namespace quillo
