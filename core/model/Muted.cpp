#include "core/model/Muted.h"

#include "core/model/Video.h"

#include <algorithm>

namespace murbo {
namespace {

template <class Block>
bool anyMuted(const List<Block>& blocks) {
    return std::ranges::any_of(blocks, [](const Block& block) { return block.muted.value_or(false); });
}

}

Muted hasMuted(const Video& video) {
    Muted found;
    found.blocks = anyMuted(video.cuts);
    if (!video.look) return found;
    const auto& look = *video.look;
    found.rows = look.mix && look.mix->muted && !look.mix->muted->empty();
    found.blocks = found.blocks || anyMuted(look.sounds) || anyMuted(look.music);
    return found;
}

}
