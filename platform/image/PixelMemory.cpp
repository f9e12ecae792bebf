#include "platform/image/PixelMemory.h"

#include <algorithm>
#include <mutex>
#include <new>
#include <vector>

namespace murbo::PixelMemory {
namespace {

constexpr std::align_val_t alignment{64};
/// What is smaller the allocator keeps by itself.
constexpr std::size_t worthKeeping = 1 << 17;
#ifdef __SANITIZE_ADDRESS__
/// Memory that is given back must be seen to be gone.
constexpr bool keeps = false;
#else
constexpr bool keeps = true;
#endif
/// All that lies ready at once: a few frames' worth.
constexpr std::size_t mostKept = 96 << 20;

struct Block {
    std::uint8_t* memory;
    std::size_t bytes;
};

void release(const Block& block) {
    ::operator delete[](block.memory, alignment);
}

/// Blocks that nobody uses, the longest unused first.
class Kept {
public:
    /// A block that fits without much waste.
    Block take(std::size_t bytes) {
        const std::lock_guard lock(mutex);
        const auto found = std::find_if(blocks.rbegin(), blocks.rend(), [&](const Block& block) {
            return block.bytes >= bytes && block.bytes - bytes <= bytes / 4;
        });
        if (found == blocks.rend()) return {nullptr, 0};
        const Block block = *found;
        blocks.erase(std::next(found).base());
        kept -= block.bytes;
        return block;
    }

    void give(const Block& block) {
        std::vector<Block> spare;
        {
            const std::lock_guard lock(mutex);
            blocks.push_back(block);
            kept += block.bytes;
            while (kept > mostKept) {
                spare.push_back(blocks.front());
                kept -= blocks.front().bytes;
                blocks.erase(blocks.begin());
            }
        }
        for (const auto& each : spare) release(each);
    }

private:
    std::mutex mutex;
    std::vector<Block> blocks;
    std::size_t kept = 0;
};

/// Never destroyed: pictures may outlive everything else.
Kept& kept() {
    static Kept* const blocks = new Kept;
    return *blocks;
}

}

std::shared_ptr<std::uint8_t[]> take(std::size_t bytes) {
    const bool keeping = keeps && bytes >= worthKeeping;
    Block block = keeping ? kept().take(bytes) : Block{nullptr, 0};
    if (!block.memory) block = {static_cast<std::uint8_t*>(::operator new[](bytes, alignment)), bytes};
    const auto done = [bytes = block.bytes, keeping](std::uint8_t* memory) {
        keeping ? kept().give({memory, bytes}) : release({memory, bytes});
    };
    return {block.memory, done};
}

}
