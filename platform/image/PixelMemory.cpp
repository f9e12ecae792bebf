#include "platform/image/PixelMemory.h"

#include "platform/base/Problem.h"

#include <algorithm>
#include <mutex>
#include <new>
#include <vector>

namespace murbo::PixelMemory {
namespace {

constexpr std::align_val_t alignment{64};
constexpr int longestSide = 32768;
/// Rows start on whole cache lines, so that no vector of pixels straddles two.
constexpr std::ptrdiff_t rowAlignment = 64;
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
constexpr std::size_t maxKept = 48 << 20;

/// After this many further requests that size will not be asked for again: a frame makes a few dozen.
constexpr std::uint64_t staleAfter = 100;

struct SpareBlock {
    std::uint8_t* memory = nullptr;
    std::size_t bytes = 0;
    std::uint64_t used = 0; ///< the count of requests when it was given back
};

void release(const SpareBlock& block) {
    ::operator delete[](block.memory, alignment);
}

/// Blocks that are not in use, the longest unused first.
class SpareBlocks {
public:
    /// A block that fits without much waste.
    SpareBlock take(std::size_t bytes) {
        const std::lock_guard lock(mutex);
        ++requests;
        const auto found = std::find_if(blocks.rbegin(), blocks.rend(), [&](const SpareBlock& block) {
            return block.bytes >= bytes && block.bytes - bytes <= bytes / 4;
        });
        if (found == blocks.rend()) return {};
        const SpareBlock block = *found;
        blocks.erase(std::next(found).base());
        kept -= block.bytes;
        return block;
    }

    void give(SpareBlock block) {
        std::vector<SpareBlock> spare;
        {
            const std::lock_guard lock(mutex);
            block.used = requests;
            blocks.push_back(block);
            kept += block.bytes;
            while (!blocks.empty() && (kept > maxKept || requests - blocks.front().used > staleAfter)) {
                spare.push_back(blocks.front());
                kept -= blocks.front().bytes;
                blocks.erase(blocks.begin());
            }
        }
        for (const auto& each : spare) release(each);
    }

private:
    std::mutex mutex;
    std::vector<SpareBlock> blocks;
    std::size_t kept = 0;
    std::uint64_t requests = 0;
};

/// Never destroyed: pictures may outlive everything else.
SpareBlocks& spareBlocks() {
    static SpareBlocks* const blocks = new SpareBlocks;
    return *blocks;
}

}

void requireSize(int width, int height) {
    if (width > 0 && height > 0 && width <= longestSide && height <= longestSide) return;
    throw Problem("A picture of " + std::to_string(width) + " × " + std::to_string(height) +
                  " pixels can’t be held.");
}

std::ptrdiff_t stride(std::ptrdiff_t bytes) {
    return (bytes + rowAlignment - 1) / rowAlignment * rowAlignment;
}

std::shared_ptr<std::uint8_t[]> take(std::size_t bytes) {
    const bool keeping = keeps && bytes >= worthKeeping;
    SpareBlock block = keeping ? spareBlocks().take(bytes) : SpareBlock{};
    if (!block.memory) block = {static_cast<std::uint8_t*>(::operator new[](bytes, alignment)), bytes, 0};
    const auto done = [bytes = block.bytes, keeping](std::uint8_t* memory) {
        keeping ? spareBlocks().give({memory, bytes, 0}) : release({memory, bytes, 0});
    };
    return {block.memory, done};
}

}
