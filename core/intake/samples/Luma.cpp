#include "core/intake/samples/Luma.h"

namespace murbo {
namespace {

// A larger square would outgrow the sums, and nothing that is recorded needs it.
constexpr int largestStep = 256;

// The brightest that is filmed, as a share of the signal. HLG is made to be looked at as it is; PQ reaches up
// to 10,000 nits, and 1,000 of them, what screens and phones show, stand at three quarters.
double brightest(Frame::Transfer transfer) {
    return transfer == Frame::Transfer::pq ? 0.75 : 1;
}

/// From stored values, brought to 8 bits, to 0 for black and 255 for white.
std::array<std::uint8_t, 256> levels(const Frame& frame) {
    const bool limited = !frame.fullRange && frame.layout != Frame::Layout::bgra;
    const double black = limited ? 16 : 0;
    const double reach = (limited ? 219 : 255) * brightest(frame.transfer);
    std::array<std::uint8_t, 256> levels{};
    for (std::size_t stored = 0; stored < levels.size(); ++stored)
        levels[stored] = static_cast<std::uint8_t>(
            std::clamp(std::lround((static_cast<double>(stored) - black) / reach * 255), 0L, 255L));
    return levels;
}

template <class Sample, class Sum>
void addRow(const std::uint8_t* stored, std::vector<Sum>& columns) {
    const auto* samples = reinterpret_cast<const Sample*>(stored);
    Sum* sums = columns.data();
    const std::size_t count = columns.size();
    for (std::size_t x = 0; x < count; ++x) sums[x] = static_cast<Sum>(sums[x] + samples[x]);
}

// BT.601's weights in whole numbers; such pictures are drawn, not filmed, and either matrix does.
void addColourRow(const std::uint8_t* bgra, std::vector<std::uint32_t>& columns) {
    for (std::size_t x = 0; x < columns.size(); ++x, bgra += 4)
        columns[x] += (29U * bgra[0] + 150U * bgra[1] + 77U * bgra[2]) >> 8;
}

template <class Sum, class AddRow>
Luma reduced(const Frame& frame, int step, int shift, AddRow add) {
    const int width = frame.width / step;
    const int height = frame.height / step;
    Luma luma{width, height, std::vector<std::uint8_t>(static_cast<std::size_t>(width) * height)};
    const auto level = levels(frame);
    const std::uint32_t area = static_cast<std::uint32_t>(step) * static_cast<std::uint32_t>(step) << shift;
    const std::uint64_t inverse = (std::uint64_t{1} << 32) / area + 1;
    std::vector<Sum> columns(static_cast<std::size_t>(width) * step);
    auto* to = luma.pixels.data();
    for (int y = 0; y < height; ++y) {
        std::fill(columns.begin(), columns.end(), Sum{0});
        for (int row = y * step; row < (y + 1) * step; ++row)
            add(frame.planes[0] + row * frame.strides[0], columns);
        const Sum* from = columns.data();
        for (int x = 0; x < width; ++x) {
            std::uint64_t sum = area / 2;
            for (int at = 0; at < step; ++at) sum += *from++;
            *to++ = level[std::min<std::uint64_t>(sum * inverse >> 32, 255)];
        }
    }
    return luma;
}

Luma reduced(const Frame& frame, int step) {
    if (frame.layout == Frame::Layout::bgra) return reduced<std::uint32_t>(frame, step, 0, addColourRow);
    if (frame.depth > 8) {
        const int shift = frame.highBits ? 8 : frame.depth - 8;
        return reduced<std::uint32_t>(frame, step, shift, addRow<std::uint16_t, std::uint32_t>);
    }
    return reduced<std::uint16_t>(frame, step, 0, addRow<std::uint8_t, std::uint16_t>);
}

Luma turned(const Luma& luma, int turn) {
    if (turn % 4 == 0) return luma;
    const bool lying = turn % 2 == 1;
    Luma upright{lying ? luma.height : luma.width, lying ? luma.width : luma.height, {}};
    upright.pixels.reserve(luma.pixels.size());
    for (int y = 0; y < upright.height; ++y)
        for (int x = 0; x < upright.width; ++x) {
            const int fromX = turn == 1 ? y : luma.width - 1 - (turn == 2 ? x : y);
            const int fromY = turn == 3 ? x : luma.height - 1 - (turn == 1 ? x : y);
            upright.pixels.push_back(luma.row(fromY)[fromX]);
        }
    return upright;
}

}

Luma Luma::of(const Frame& frame, int step) {
    const int fitting = std::clamp(step, 1, largestStep);
    if (!frame.planes[0] || frame.width < fitting || frame.height < fitting) return {};
    return turned(reduced(frame, fitting), frame.turn & 3);
}

Luma Luma::halved() const {
    Luma half{width / 2, height / 2, {}};
    half.pixels.resize(static_cast<std::size_t>(half.width) * half.height);
    for (int y = 0; y < half.height; ++y) {
        const auto* upper = row(2 * y);
        const auto* lower = row(2 * y + 1);
        auto* to = half.pixels.data() + static_cast<std::ptrdiff_t>(y) * half.width;
        for (int x = 0; x < half.width; ++x)
            to[x] = static_cast<std::uint8_t>(
                (upper[2 * x] + upper[2 * x + 1] + lower[2 * x] + lower[2 * x + 1] + 2) / 4);
    }
    return half;
}

}
