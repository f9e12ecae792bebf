#include "platform/image/kernels/Kernels.h"

// This file is compiled once for each instruction set; the order of what follows matters.
// clang-format off
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "platform/image/kernels/Vignette.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>
#include "platform/image/kernels/Straight-inl.h"
// clang-format on

HWY_BEFORE_NAMESPACE();
namespace murbo::Kernels::HWY_NAMESPACE {

/// Steps of the plane that fills most evenly (Roberts, the R2 sequence), in 1/2^32: what rounds a pixel.
constexpr std::uint32_t roundingX = 3242174889u;
constexpr std::uint32_t roundingY = 2447445414u;

/// Channels times `light` of 15 bits, 7 bits of rounding added.
template <typename W, typename V = hn::VFromD<W>>
HWY_INLINE V shaded(W words, V values, V light, V rounding) {
    const hn::RebindToUnsigned<W> whole;
    const auto product = hn::MulFixedPoint15(hn::ShiftLeft<7>(values), light);
    return hn::BitCast(words, hn::ShiftRight<7>(hn::BitCast(whole, hn::Add(product, rounding))));
}

void VignetteRow(const std::int32_t* across, int down, const std::uint32_t* light, int x, int y, int count,
                 std::uint8_t* pixels) {
    const auto start = std::uint32_t(x) * roundingX + std::uint32_t(y) * roundingY;
    inVectors<std::uint32_t>(count, [&](auto d, int at) {
        const hn::RebindToSigned<decltype(d)> signs;
        const hn::Repartition<std::int16_t, decltype(d)> words;
        const auto place = hn::Add(hn::LoadU(signs, across + at), hn::Set(signs, down));
        const auto share = hn::BitCast(words, inBothHalves(hn::GatherIndex(d, light, place)));
        const auto index = hn::Iota(d, std::uint32_t(at));
        const auto noise = hn::Add(hn::Mul(index, hn::Set(d, roundingX)), hn::Set(d, start));
        const auto rounding = hn::BitCast(words, inBothHalves(hn::ShiftRight<25>(noise)));
        const auto found = load(d, pixels, at);
        const auto even = hn::Set(d, 0x00FF00FF);
        const auto blueRed = hn::BitCast(words, hn::And(found, even));
        const auto green = hn::BitCast(words, hn::And(hn::ShiftRight<8>(found), hn::Set(d, 0xFF)));
        const auto colours = hn::Or(hn::BitCast(d, shaded(words, blueRed, share, rounding)),
                                    hn::ShiftLeft<8>(hn::BitCast(d, shaded(words, green, share, rounding))));
        const auto alpha = hn::Set(d, 0xFF000000);
        store(d, hn::Or(hn::And(found, alpha), hn::AndNot(alpha, colours)), pixels, at);
    });
}

}
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace murbo::Kernels {

HWY_EXPORT(VignetteRow);

void vignetteRow(const std::int32_t* across, int down, const std::uint32_t* light, int x, int y, int count,
                 std::uint8_t* pixels) {
    HWY_DYNAMIC_DISPATCH(VignetteRow)(across, down, light, x, y, count, pixels);
}

}
#endif
