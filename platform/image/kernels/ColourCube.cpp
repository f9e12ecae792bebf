#include "platform/image/kernels/Kernels.h"

// This file is compiled once for each instruction set; the order of what follows matters.
// clang-format off
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "platform/image/kernels/ColourCube.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>
#include "platform/image/kernels/Straight-inl.h"
// clang-format on

HWY_BEFORE_NAMESPACE();
namespace murbo::Kernels::HWY_NAMESPACE {

/// From the cell's darkest corner along the longest fraction first: four corners of the tetrahedron that
/// holds the colour.
class CubeCorners {
public:
    explicit CubeCorners(const ColourTable& table)
        : cube(table.entries), cells((table.side - 1) * 65536 / 255 + 1), greenStride(table.side) {}

    template <typename D, typename V = hn::VFromD<D>>
    HWY_INLINE V between(D d, V pixels) const {
        const hn::RebindToSigned<D> signs;
        const hn::Repartition<std::uint16_t, D> words;
        // Where the channel falls, in 1/256 cell.
        const auto place = [&](V value) {
            return hn::ShiftRight<8>(hn::Mul(hn::And(value, hn::Set(d, 255)), hn::Set(d, cells)));
        };
        const V red = place(hn::ShiftRight<16>(pixels));
        const V green = place(hn::ShiftRight<8>(pixels));
        const V blue = place(pixels);
        const auto stride = [&](int value) { return hn::Set(d, std::uint32_t(value)); };
        // A fraction travels with its stride, so that sorting one sorts the other.
        const auto key = [&](V value, int step) {
            return hn::Or(hn::ShiftLeft<16>(hn::And(value, hn::Set(d, 255))), stride(step));
        };
        const V keyR = key(red, 1);
        const V keyG = key(green, greenStride);
        const V keyB = key(blue, greenStride * greenStride);
        const V longest = hn::Max(hn::Max(keyR, keyG), keyB);
        const V shortest = hn::Min(hn::Min(keyR, keyG), keyB);
        const V middle = hn::Sub(hn::Add(hn::Add(keyR, keyG), keyB), hn::Add(longest, shortest));

        auto at = hn::Add(hn::ShiftRight<8>(red), hn::Mul(hn::ShiftRight<8>(green), stride(greenStride)));
        at = hn::Add(at, hn::Mul(hn::ShiftRight<8>(blue), stride(greenStride * greenStride)));
        auto low = hn::Set(words, 128);
        auto high = hn::Set(words, 128);
        const auto add = [&](V weight) {
            const auto entry = hn::BitCast(words, hn::GatherIndex(d, cube, hn::BitCast(signs, at)));
            const auto share = hn::BitCast(words, inBothHalves(weight));
            low = hn::Add(low, hn::Mul(hn::And(entry, hn::Set(words, 0x00FF)), share));
            high = hn::Add(high, hn::Mul(hn::ShiftRight<8>(entry), share));
        };
        const auto step = [&](V sorted) { at = hn::Add(at, hn::And(sorted, hn::Set(d, 0xFFFF))); };
        const V one = hn::ShiftRight<16>(longest);
        const V two = hn::ShiftRight<16>(middle);
        const V three = hn::ShiftRight<16>(shortest);
        add(hn::Sub(hn::Set(d, 256), one));
        step(longest);
        add(hn::Sub(one, two));
        step(middle);
        add(hn::Sub(two, three));
        step(shortest);
        add(three);
        const auto upper = hn::AndNot(hn::Set(words, 0x00FF), high);
        return hn::BitCast(d, hn::Or(hn::ShiftRight<8>(low), upper));
    }

private:
    const std::uint32_t* cube;
    std::uint32_t cells;
    int greenStride;
};

void LookUpColours(const ColourTable& table, int count, std::uint8_t* pixels) {
    const CubeCorners corners(table);
    inVectors<std::uint32_t>(count, [&](auto d, int at) {
        const auto found = load(d, pixels, at);
        const auto alpha = hn::ShiftRight<24>(found);
        if (hn::AllTrue(d, hn::Eq(alpha, hn::Set(d, 255))))
            return store(d, corners.between(d, found), pixels, at);
        if (hn::AllTrue(d, hn::Eq(alpha, hn::Zero(d)))) return;
        const auto colours = corners.between(d, straightened(d, found, alpha));
        store(d, times(d, colours, inBothHalves(alpha)), pixels, at);
    });
}

}
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace murbo::Kernels {

HWY_EXPORT(LookUpColours);

void lookUpColours(const ColourTable& table, int count, std::uint8_t* pixels) {
    HWY_DYNAMIC_DISPATCH(LookUpColours)(table, count, pixels);
}

}
#endif
