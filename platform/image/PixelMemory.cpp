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
/// All that lies ready at once: a few frames' worth. More was no faster, and an export has little to spare
/// beside its encoder.
constexpr std::size_t mostKept = 48 << 20;

/// After so many further requests nobody will ask for that size again: a frame makes a few dozen at most.
constexpr std::uint64_t staleAfter = 100;

struct Block {
    std::uint8_t* memory = nullptr;
    std::size_t bytes = 0;
    std::uint64_t used = 0; ///< the count of requests when it was given back
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
        ++requests;
        const auto found = std::find_if(blocks.rbegin(), blocks.rend(), [&](const Block& block) {
            return block.bytes >= bytes && block.bytes - bytes <= bytes / 4;
        });
        if (found == blocks.rend()) return {};
        const Block block = *found;
        blocks.erase(std::next(found).base());
        kept -= block.bytes;
        return block;
    }

    void give(Block block) {
        std::vector<Block> spare;
        {
            const std::lock_guard lock(mutex);
            block.used = requests;
            blocks.push_back(block);
            kept += block.bytes;
            while (!blocks.empty() && (kept > mostKept || requests - blocks.front().used > staleAfter)) {
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
    std::uint64_t requests = 0;
};

/// Never destroyed: pictures may outlive everything else.
Kept& kept() {
    static Kept* const blocks = new Kept;
    return *blocks;
}

}

std::shared_ptr<std::uint8_t[]> take(std::size_t bytes) {
    const bool keeping = keeps && bytes >= worthKeeping;
    Block block = keeping ? kept().take(bytes) : Block{};
    if (!block.memory) block = {static_cast<std::uint8_t*>(::operator new[](bytes, alignment)), bytes, 0};
    const auto done = [bytes = block.bytes, keeping](std::uint8_t* memory) {
        keeping ? kept().give({memory, bytes, 0}) : release({memory, bytes, 0});
    };
    return {block.memory, done};
}

}
